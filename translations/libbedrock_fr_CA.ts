<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_CA" sourcelanguage="en">
<context>
    <name>BaseTaxPage</name>
    <message>
        <source>Page %1</source>
        <translation>Page %1</translation>
    </message>
    <message>
        <source>Federal Age Amount Worksheet (30100)</source>
        <translation>Feuille de travail fédérale pour le montant en raison de l&apos;âge (30100)</translation>
    </message>
    <message>
        <source>Federal Pension Amount Worksheet (31400)</source>
        <translation>Feuille de travail fédérale pour le montant pour revenu de pension (31400)</translation>
    </message>
    <message>
        <source>Provincial Age Amount Worksheet (58080)</source>
        <translation>Feuille de travail provinciale pour le montant en raison de l&apos;âge (58080)</translation>
    </message>
    <message>
        <source>Provincial Amount for Infirm Dependant Aged 18+ (58200)</source>
        <translation>Montant provincial pour personnes à charge ayant une déficience âgées de 18 ans ou plus (58200)</translation>
    </message>
    <message>
        <source>Prvocincial Adoption Amount Worksheet (58330)</source>
        <translation>Feuille de travail provinciale pour les frais d&apos;adoption (58330)</translation>
    </message>
    <message>
        <source>Caregiver Amount (58400)</source>
        <translation>Montant pour aidant naturel (58400)</translation>
    </message>
    <message>
        <source>Disability Amount for Self (58440)</source>
        <translation>Montant pour personnes handicapées (pour vous-même) (58440)</translation>
    </message>
</context>
<context>
    <name>COneQOneChkboxDialog</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
</context>
<context>
    <name>CT1ComboBox</name>
    <message>
        <source>Son</source>
        <translation>Fils</translation>
    </message>
    <message>
        <source>Daughter</source>
        <translation>Fille</translation>
    </message>
    <message>
        <source>Father</source>
        <translation>Père</translation>
    </message>
    <message>
        <source>Mother</source>
        <translation>Mère</translation>
    </message>
    <message>
        <source>Grandfather</source>
        <translation>Grand-père</translation>
    </message>
    <message>
        <source>GrandMother</source>
        <translation>Grand-mère</translation>
    </message>
    <message>
        <source>GrandSon</source>
        <translation>Petit-fils</translation>
    </message>
    <message>
        <source>GrandDaughter</source>
        <translation>Petite-fille</translation>
    </message>
    <message>
        <source>Brother</source>
        <translation>Frère</translation>
    </message>
    <message>
        <source>Sister</source>
        <translation>Sœur</translation>
    </message>
    <message>
        <source>Nephew</source>
        <translation>Neveu</translation>
    </message>
    <message>
        <source>Niece</source>
        <translation>Nièce</translation>
    </message>
    <message>
        <source>Uncle</source>
        <translation>Oncle</translation>
    </message>
    <message>
        <source>Aunt</source>
        <translation>Tante</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>Autre</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>Sans déficience</translation>
    </message>
    <message>
        <source>Infirm</source>
        <translation>Ayant une déficience</translation>
    </message>
    <message>
        <source>Disabled</source>
        <translation>Handicapé</translation>
    </message>
    <message>
        <source>Choose A Province</source>
        <translation>Choisissez une province</translation>
    </message>
    <message>
        <source>Alberta</source>
        <translation>Alberta</translation>
    </message>
    <message>
        <source>British Columbia</source>
        <translation>Colombie-Britannique</translation>
    </message>
    <message>
        <source>Manitoba</source>
        <translation>Manitoba</translation>
    </message>
    <message>
        <source>New Brunswick</source>
        <translation>Nouveau-Brunswick</translation>
    </message>
    <message>
        <source>Newfoundland And Labrador</source>
        <translation>Terre-Neuve-et-Labrador</translation>
    </message>
    <message>
        <source>Nova Scotia</source>
        <translation>Nouvelle-Écosse</translation>
    </message>
    <message>
        <source>Northwest Territory</source>
        <translation>Territoires du Nord-Ouest</translation>
    </message>
    <message>
        <source>Nunavut</source>
        <translation>Nunavut</translation>
    </message>
    <message>
        <source>Ontario</source>
        <translation>Ontario</translation>
    </message>
    <message>
        <source>Prince Edward Island</source>
        <translation>Île-du-Prince-Édouard</translation>
    </message>
    <message>
        <source>Quebec</source>
        <translation>Québec</translation>
    </message>
    <message>
        <source>Saskatchewan</source>
        <translation>Saskatchewan</translation>
    </message>
    <message>
        <source>Yukon Territory</source>
        <translation>Yukon</translation>
    </message>
    <message>
        <source>Non-Resident</source>
        <translation>Non-résident</translation>
    </message>
    <message>
        <source>Non-Resident Under Section 216</source>
        <translation>Non-résident en vertu de l&apos;article 216</translation>
    </message>
    <message>
        <source>Non-Resident Under Section 217</source>
        <translation>Non-résident en vertu de l&apos;article 217</translation>
    </message>
    <message>
        <source>Deemed Resident</source>
        <translation>Résident réputé</translation>
    </message>
    <message>
        <source>Outside Canada</source>
        <translation>À l&apos;extérieur du Canada</translation>
    </message>
    <message>
        <source>Select a program</source>
        <translation>Choisissez un programme</translation>
    </message>
    <message>
        <source>a certificate program</source>
        <translation>un programme menant à un certificat</translation>
    </message>
    <message>
        <source>a diploma program</source>
        <translation>un programme menant à un diplôme</translation>
    </message>
    <message>
        <source>3-year undergraduate</source>
        <translation>premier cycle de 3 ans</translation>
    </message>
    <message>
        <source>4-year undergraduate</source>
        <translation>premier cycle de 4 ans</translation>
    </message>
    <message>
        <source>Choose a Form Type</source>
        <translation>Choisissez un type de formulaire</translation>
    </message>
</context>
<context>
    <name>CYesNoContinueDlg</name>
    <message>
        <source>%1:</source>
        <translation>%1&#xa0;:</translation>
    </message>
</context>
<context>
    <name>DependantInfoStruct</name>
    <message>
        <source>No dependant information was entered.</source>
        <translation>Aucune personne à charge n&apos;a été inscrite.</translation>
    </message>
    <message>
        <source>Please select a dependant</source>
        <translation>Veuillez choisir une personne à charge</translation>
    </message>
</context>
<context>
    <name>DlgMsgWithLink</name>
    <message>
        <source>Dialog</source>
        <translation>Dialogue</translation>
    </message>
</context>
<context>
    <name>StringLineEdit</name>
    <message>
        <source>press key or click to launch worksheet</source>
        <translation>appuyez sur une touche ou cliquez pour ouvrir la feuille de travail</translation>
    </message>
</context>
<context>
    <name>WS58440_DisabilitySelf_tab1</name>
    <message>
        <source>Field 58440 - Provincial Disability for Self Worksheet</source>
        <translation>Ligne 58440 - Feuille de travail provinciale pour le montant pour personnes handicapées (pour vous-même)</translation>
    </message>
    <message>
        <source>Check to claim disability amount (for self)</source>
        <translation>Cochez pour demander le montant pour personnes handicapées (pour vous-même)</translation>
    </message>
    <message>
        <source>Supplement calculation if you were under age 18 in the tax year</source>
        <translation>Calcul du supplément si vous aviez moins de 18 ans dans l&apos;année d&apos;imposition</translation>
    </message>
    <message>
        <source>Maximum supplement</source>
        <translation>Supplément maximal</translation>
    </message>
    <message>
        <source>1</source>
        <translation>1</translation>
    </message>
    <message>
        <source>Total child care and attendant care</source>
        <translation>Total des frais de garde d&apos;enfants et de soins auxiliaires</translation>
    </message>
    <message>
        <source>expense claimed for you by anyone</source>
        <translation>demandés pour vous par toute personne</translation>
    </message>
    <message>
        <source>2</source>
        <translation>2</translation>
    </message>
    <message>
        <source>Base amount</source>
        <translation>Montant de base</translation>
    </message>
    <message>
        <source>3</source>
        <translation>3</translation>
    </message>
    <message>
        <source>-</source>
        <translation>-</translation>
    </message>
    <message>
        <source>Line 2 minus line 3 (if negative, enter &apos;0&apos;)</source>
        <translation>Ligne 2 moins ligne 3 (si le résultat est négatif, inscrivez «&#xa0;0&#xa0;»)</translation>
    </message>
    <message>
        <source>4</source>
        <translation>4</translation>
    </message>
    <message>
        <source>=</source>
        <translation>=</translation>
    </message>
    <message>
        <source>Line 1 minus line 4 (if negative, enter &apos;0&apos;)</source>
        <translation>Ligne 1 moins ligne 4 (si le résultat est négatif, inscrivez «&#xa0;0&#xa0;»)</translation>
    </message>
    <message>
        <source>5</source>
        <translation>5</translation>
    </message>
    <message>
        <source>Enter field 58440 of the sum of line 5 and provincial base amount</source>
        <translation>Inscrivez à la ligne 58440 le total de la ligne 5 et du montant de base provincial</translation>
    </message>
</context>
<context>
    <name>WS58480_DisabilityDepTransfer_tab1</name>
    <message>
        <source>Note: please choose dependant from federal worksheet for field 31800.</source>
        <translation>Remarque&#xa0;: veuillez choisir la personne à charge dans la feuille de travail fédérale de la ligne 31800.</translation>
    </message>
    <message>
        <source>Select==&gt;</source>
        <translation>Choisir==&gt;</translation>
    </message>
    <message>
        <source>Base amount</source>
        <translation>Montant de base</translation>
    </message>
    <message>
        <source>1</source>
        <translation>1</translation>
    </message>
    <message>
        <source>If the dependant was under age 18 at the end of tax year, complete lines 2 to 13;</source>
        <translation>Si la personne à charge avait moins de 18 ans à la fin de l&apos;année d&apos;imposition, remplissez les lignes 2 à 13;</translation>
    </message>
    <message>
        <source>otherwise, enter 0 to line 7 and complete lines 7 to 13.</source>
        <translation>sinon, inscrivez 0 à la ligne 7 et remplissez les lignes 7 à 13.</translation>
    </message>
    <message>
        <source>Maximum amount</source>
        <translation>Montant maximal</translation>
    </message>
    <message>
        <source>2</source>
        <translation>2</translation>
    </message>
    <message>
        <source>Total of child care and attendant care expenses for your</source>
        <translation>Total des frais de garde d&apos;enfants et de soins auxiliaires pour votre</translation>
    </message>
    <message>
        <source>dependant, claimed by your or others</source>
        <translation>personne à charge, demandés par vous ou par d&apos;autres personnes</translation>
    </message>
    <message>
        <source>3</source>
        <translation>3</translation>
    </message>
    <message>
        <source>Threshhold for child care expense</source>
        <translation>Seuil des frais de garde d&apos;enfants</translation>
    </message>
    <message>
        <source>4-</source>
        <translation>4-</translation>
    </message>
    <message>
        <source>Line 3 minus line 4</source>
        <translation>Ligne 3 moins ligne 4</translation>
    </message>
    <message>
        <source>5=</source>
        <translation>5=</translation>
    </message>
    <message>
        <source>-</source>
        <translation>-</translation>
    </message>
    <message>
        <source>Line 2 minus line 5 (if negative, enter &apos;0&apos;)</source>
        <translation>Ligne 2 moins ligne 5 (si le résultat est négatif, inscrivez «&#xa0;0&#xa0;»)</translation>
    </message>
    <message>
        <source>6=</source>
        <translation>6=</translation>
    </message>
    <message>
        <source>If the dependant was under age 18, enter the amount from line 6; otherwise 0</source>
        <translation>Si la personne à charge avait moins de 18 ans, inscrivez le montant de la ligne 6; sinon, 0</translation>
    </message>
    <message>
        <source>7+</source>
        <translation>7+</translation>
    </message>
    <message>
        <source>Add lines 1 and 7</source>
        <translation>Additionnez les lignes 1 et 7</translation>
    </message>
    <message>
        <source>8=</source>
        <translation>8=</translation>
    </message>
    <message>
        <source>Amount from the line BEFORE 31600(fed. tax)/58440(prov. tax) of the dependant&apos;s return.</source>
        <translation>Montant de la ligne qui PRÉCÈDE la ligne 31600 (impôt féd.)/58440 (impôt prov.) de la déclaration de la personne à charge.</translation>
    </message>
    <message>
        <source>9+</source>
        <translation>9+</translation>
    </message>
    <message>
        <source>Add lines 8 and 9</source>
        <translation>Additionnez les lignes 8 et 9</translation>
    </message>
    <message>
        <source>10=</source>
        <translation>10=</translation>
    </message>
    <message>
        <source>Dependant&apos;s taxable income from line 26000 of his or her T1</source>
        <translation>Revenu imposable de la personne à charge (ligne 26000 de sa déclaration T1)</translation>
    </message>
    <message>
        <source>11-</source>
        <translation>11-</translation>
    </message>
    <message>
        <source>Line 10 minus line 11(if negative, enter 0)</source>
        <translation>Ligne 10 moins ligne 11 (si le résultat est négatif, inscrivez «&#xa0;0&#xa0;»)</translation>
    </message>
    <message>
        <source>12=</source>
        <translation>12=</translation>
    </message>
    <message>
        <source>The claim amount, the lesser of line 8 and line 12</source>
        <translation>Montant demandé&#xa0;: le moins élevé des montants des lignes 8 et 12</translation>
    </message>
    <message>
        <source>overwrite</source>
        <translation>remplacer</translation>
    </message>
    <message>
        <source>13</source>
        <translation>13</translation>
    </message>
</context>
<context>
    <name>WS58600_tab1</name>
    <message>
        <source>Provincial Tuition Transfer Amounts</source>
        <translation>Montants provinciaux pour frais de scolarité transférés</translation>
    </message>
    <message>
        <source>Total amounts transferred</source>
        <translation>Total des montants transférés</translation>
    </message>
    <message>
        <source>1</source>
        <translation>1</translation>
    </message>
    <message>
        <source>In case this amount should be pro-rated, the calculated</source>
        <translation>Si ce montant doit être calculé au prorata, le montant</translation>
    </message>
    <message>
        <source>claim amount.</source>
        <translation>demandé calculé.</translation>
    </message>
    <message>
        <source>2</source>
        <translation>2</translation>
    </message>
</context>
<context>
    <name>WSAdoptionExpense_tab1</name>
    <message>
        <source>Details of adoption expenses</source>
        <translation>Détail des frais d&apos;adoption</translation>
    </message>
    <message>
        <source>Adoption expense for 1st child</source>
        <translation>Frais d&apos;adoption pour le 1er enfant</translation>
    </message>
    <message>
        <source>1</source>
        <translation>1</translation>
    </message>
    <message>
        <source>Adoption expense for 2nd child</source>
        <translation>Frais d&apos;adoption pour le 2e enfant</translation>
    </message>
    <message>
        <source>2</source>
        <translation>2</translation>
    </message>
    <message>
        <source>+</source>
        <translation>+</translation>
    </message>
    <message>
        <source>Adoption expense for 3rd child</source>
        <translation>Frais d&apos;adoption pour le 3e enfant</translation>
    </message>
    <message>
        <source>3</source>
        <translation>3</translation>
    </message>
    <message>
        <source>Adoption expense for 4th child</source>
        <translation>Frais d&apos;adoption pour le 4e enfant</translation>
    </message>
    <message>
        <source>4</source>
        <translation>4</translation>
    </message>
    <message>
        <source>Adoption expense for 5th child</source>
        <translation>Frais d&apos;adoption pour le 5e enfant</translation>
    </message>
    <message>
        <source>5</source>
        <translation>5</translation>
    </message>
    <message>
        <source>Adoption expense for 6th child</source>
        <translation>Frais d&apos;adoption pour le 6e enfant</translation>
    </message>
    <message>
        <source>6</source>
        <translation>6</translation>
    </message>
    <message>
        <source>A maximum amount will be applied when counting the total adoption expense</source>
        <translation>Un montant maximal s&apos;applique au calcul du total des frais d&apos;adoption</translation>
    </message>
</context>
<context>
    <name>WSAgeAmount_tab1</name>
    <message>
        <source>Age Amount Calculation</source>
        <translation>Calcul du montant en raison de l&apos;âge</translation>
    </message>
    <message>
        <source>Maximum amount</source>
        <translation>Montant maximal</translation>
    </message>
    <message>
        <source>1</source>
        <translation>1</translation>
    </message>
    <message>
        <source>Net income</source>
        <translation>Revenu net</translation>
    </message>
    <message>
        <source>2</source>
        <translation>2</translation>
    </message>
    <message>
        <source>Base amount</source>
        <translation>Montant de base</translation>
    </message>
    <message>
        <source>3</source>
        <translation>3</translation>
    </message>
    <message>
        <source>-</source>
        <translation>-</translation>
    </message>
    <message>
        <source>Line 2 minus line 3</source>
        <translation>Ligne 2 moins ligne 3</translation>
    </message>
    <message>
        <source>4</source>
        <translation>4</translation>
    </message>
    <message>
        <source>=</source>
        <translation>=</translation>
    </message>
    <message>
        <source>(If negative, enter &apos;0&apos;)</source>
        <translation>(si le résultat est négatif, inscrivez «&#xa0;0&#xa0;»)</translation>
    </message>
    <message>
        <source>Multiply rate</source>
        <translation>Taux</translation>
    </message>
    <message>
        <source>5</source>
        <translation>5</translation>
    </message>
    <message>
        <source>X</source>
        <translation>X</translation>
    </message>
    <message>
        <source>Line 4 multiply line 5</source>
        <translation>Ligne 4 multipliée par la ligne 5</translation>
    </message>
    <message>
        <source>6</source>
        <translation>6</translation>
    </message>
    <message>
        <source>Age amount calculated at last</source>
        <translation>Montant en raison de l&apos;âge calculé</translation>
    </message>
    <message>
        <source>Line 1 minus line 6</source>
        <translation>Ligne 1 moins ligne 6</translation>
    </message>
    <message>
        <source>7</source>
        <translation>7</translation>
    </message>
</context>
<context>
    <name>WSCaregiverAmt_Dep</name>
    <message>
        <source>Select==&gt;</source>
        <translation>Choisir==&gt;</translation>
    </message>
    <message>
        <source>Base amount</source>
        <translation>Montant de base</translation>
    </message>
    <message>
        <source>1</source>
        <translation>1</translation>
    </message>
    <message>
        <source>Dependant&apos;s net income (from field 23600 of his or her return)</source>
        <translation>Revenu net de la personne à charge (ligne 23600 de sa déclaration)</translation>
    </message>
    <message>
        <source>2</source>
        <translation>2</translation>
    </message>
    <message>
        <source>-</source>
        <translation>-</translation>
    </message>
    <message>
        <source>Line 1 minus line 2</source>
        <translation>Ligne 1 moins ligne 2</translation>
    </message>
    <message>
        <source>3</source>
        <translation>3</translation>
    </message>
    <message>
        <source>=</source>
        <translation>=</translation>
    </message>
    <message>
        <source>(Maximum amount applies, from provincial worksheet tax guide)</source>
        <translation>(Le montant maximal s&apos;applique, selon la feuille de travail du guide provincial)</translation>
    </message>
    <message>
        <source>If claimed this dependant at field 58160, </source>
        <translation>Si vous avez demandé un montant pour cette personne à la ligne 58160, </translation>
    </message>
    <message>
        <source>enter the amount claimed.</source>
        <translation>inscrivez le montant demandé.</translation>
    </message>
    <message>
        <source>4</source>
        <translation>4</translation>
    </message>
    <message>
        <source>Allowable amount for this dependant (if negative, enter &apos;0&apos;)</source>
        <translation>Montant admissible pour cette personne à charge (si le résultat est négatif, inscrivez «&#xa0;0&#xa0;»)</translation>
    </message>
    <message>
        <source>Line 3 minus line 4</source>
        <translation>Ligne 3 moins ligne 4</translation>
    </message>
    <message>
        <source>5</source>
        <translation>5</translation>
    </message>
    <message>
        <source>overwrite</source>
        <translation>remplacer</translation>
    </message>
</context>
<context>
    <name>WSInfirmDepAmt_Dep</name>
    <message>
        <source>Select==&gt;</source>
        <translation>Choisir==&gt;</translation>
    </message>
    <message>
        <source>Base amount</source>
        <translation>Montant de base</translation>
    </message>
    <message>
        <source>1</source>
        <translation>1</translation>
    </message>
    <message>
        <source>Dependant&apos;s net income (from field 23600 of his or her return)</source>
        <translation>Revenu net de la personne à charge (ligne 23600 de sa déclaration)</translation>
    </message>
    <message>
        <source>2</source>
        <translation>2</translation>
    </message>
    <message>
        <source>-</source>
        <translation>-</translation>
    </message>
    <message>
        <source>Line 1 minus line 2</source>
        <translation>Ligne 1 moins ligne 2</translation>
    </message>
    <message>
        <source>3</source>
        <translation>3</translation>
    </message>
    <message>
        <source>=</source>
        <translation>=</translation>
    </message>
    <message>
        <source>(Maximum amount applies, from provincial worksheet tax guide)</source>
        <translation>(Le montant maximal s&apos;applique, selon la feuille de travail du guide provincial)</translation>
    </message>
    <message>
        <source>If claimed this dependant at field 58160, </source>
        <translation>Si vous avez demandé un montant pour cette personne à la ligne 58160, </translation>
    </message>
    <message>
        <source>enter the amount claimed.</source>
        <translation>inscrivez le montant demandé.</translation>
    </message>
    <message>
        <source>4</source>
        <translation>4</translation>
    </message>
    <message>
        <source>Allowable amount for this dependant (if negative, enter &apos;0&apos;)</source>
        <translation>Montant admissible pour cette personne à charge (si le résultat est négatif, inscrivez «&#xa0;0&#xa0;»)</translation>
    </message>
    <message>
        <source>Line 3 minus line 4</source>
        <translation>Ligne 3 moins ligne 4</translation>
    </message>
    <message>
        <source>5</source>
        <translation>5</translation>
    </message>
</context>
<context>
    <name>WSInfirmDepAmt_SpouseDep</name>
    <message>
        <source>Spouse or Eligible Dependant claimed in schedule 5</source>
        <translation>Époux ou conjoint de fait, ou personne à charge admissible (demande à l&apos;annexe 5)</translation>
    </message>
    <message>
        <source>Base amount</source>
        <translation>Montant de base</translation>
    </message>
    <message>
        <source>1</source>
        <translation>1</translation>
    </message>
    <message>
        <source>Spouse/Dependant&apos;s net income (from field 23600 of his or her return)</source>
        <translation>Revenu net de l&apos;époux ou conjoint de fait ou de la personne à charge (ligne 23600 de sa déclaration)</translation>
    </message>
    <message>
        <source>2</source>
        <translation>2</translation>
    </message>
    <message>
        <source>-</source>
        <translation>-</translation>
    </message>
    <message>
        <source>Line 1 minus line 2</source>
        <translation>Ligne 1 moins ligne 2</translation>
    </message>
    <message>
        <source>3</source>
        <translation>3</translation>
    </message>
    <message>
        <source>=</source>
        <translation>=</translation>
    </message>
    <message>
        <source>(Maximum amount applies, from provincial worksheet tax guide)</source>
        <translation>(Le montant maximal s&apos;applique, selon la feuille de travail du guide provincial)</translation>
    </message>
    <message>
        <source>If claimed spouse/dependant at field 58120/58160, </source>
        <translation>Si vous avez demandé un montant pour l&apos;époux ou conjoint de fait ou la personne à charge à la ligne 58120/58160, </translation>
    </message>
    <message>
        <source>enter the amount claimed.</source>
        <translation>inscrivez le montant demandé.</translation>
    </message>
    <message>
        <source>4</source>
        <translation>4</translation>
    </message>
    <message>
        <source>Allowable amount for this dependant (if negative, enter &apos;0&apos;)</source>
        <translation>Montant admissible pour cette personne à charge (si le résultat est négatif, inscrivez «&#xa0;0&#xa0;»)</translation>
    </message>
    <message>
        <source>Line 3 minus line 4</source>
        <translation>Ligne 3 moins ligne 4</translation>
    </message>
    <message>
        <source>5</source>
        <translation>5</translation>
    </message>
</context>
<context>
    <name>WSMultiDepDlg</name>
    <message>
        <source>Dialog</source>
        <translation>Dialogue</translation>
    </message>
    <message>
        <source>Tab 1</source>
        <translation>Onglet 1</translation>
    </message>
    <message>
        <source>Tab 2</source>
        <translation>Onglet 2</translation>
    </message>
</context>
<context>
    <name>YesNoContinueDlg</name>
    <message>
        <source>Dialog</source>
        <translation>Dialogue</translation>
    </message>
    <message>
        <source>Please confirm the message by clicking the &apos;OK&apos; button to proceed; or click the &apos;Cancel&apos; button to abort the operation.</source>
        <translation>Veuillez confirmer le message en cliquant sur le bouton «&#xa0;OK&#xa0;» pour continuer, ou cliquez sur le bouton «&#xa0;Annuler&#xa0;» pour abandonner l&apos;opération.</translation>
    </message>
</context>
<context>
    <name>_OneDependantInfoStru</name>
    <message>
        <source>&lt;FirstName&gt;</source>
        <translation>&lt;Prénom&gt;</translation>
    </message>
    <message>
        <source>&lt;LastName&gt;</source>
        <translation>&lt;Nom&gt;</translation>
    </message>
    <message>
        <source> - net inc.</source>
        <translation> - revenu net</translation>
    </message>
    <message>
        <source>&lt;unknown name&gt;</source>
        <translation>&lt;nom inconnu&gt;</translation>
    </message>
</context>
<context>
    <name>dlgGeneralInput</name>
    <message>
        <source>Dialog</source>
        <translation>Dialogue</translation>
    </message>
</context>
<context>
    <name>validateAddr</name>
    <message>
        <source>State</source>
        <translation>État</translation>
    </message>
    <message>
        <source>Postal code</source>
        <translation>Code postal</translation>
    </message>
    <message>
        <source>Province</source>
        <translation>Province</translation>
    </message>
    <message>
        <source>Country</source>
        <translation>Pays</translation>
    </message>
    <message>
        <source>Street number/name</source>
        <translation>Numéro et nom de rue</translation>
    </message>
    <message>
        <source>City</source>
        <translation>Ville</translation>
    </message>
    <message>
        <source>Street address</source>
        <translation>Adresse municipale</translation>
    </message>
</context>
</TS>
