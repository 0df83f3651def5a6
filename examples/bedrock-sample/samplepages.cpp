#include "samplepages.h"

#include <QLabel>
#include <QRadioButton>

namespace {

bool s_french = false;

} // namespace

void setSampleFrench(bool french)
{
    s_french = french;
}

bool sampleFrench()
{
    return s_french;
}

QString say(const char* en, const char* fr)
{
    return QString::fromUtf8(s_french ? fr : en);
}

SamplePage::SamplePage(const QString& title, const QString& slug, CTaxData_Form* form,
                       QWidget* window)
    : BaseTaxPage(title.toUtf8().constData(), form, window)
    , m_grid(new QGridLayout(this))
    , m_slug(slug)
{
    m_grid->setContentsMargins(24, 16, 24, 16);
    m_grid->setHorizontalSpacing(12);
    m_grid->setVerticalSpacing(8);
    m_grid->setColumnStretch(0, 1);
    m_grid->setColumnMinimumWidth(2, 200);
}

void SamplePage::addHeading(const QString& text)
{
    auto* label = new QLabel(text, this);
    QFont font = label->font();
    font.setBold(true);
    font.setPointSize(font.pointSize() + 2);
    label->setFont(font);
    const int row = m_grid->rowCount();
    m_grid->addWidget(label, row, 0, 1, 3);
}

void SamplePage::addNote(const QString& text)
{
    auto* label = new QLabel(text, this);
    label->setWordWrap(true);
    m_grid->addWidget(label, m_grid->rowCount(), 0, 1, 3);
}

void SamplePage::placeLine(QWidget* box, const QString& caption, const char* code)
{
    const int row = m_grid->rowCount();
    auto* label = new UnderlineLabel(this);
    label->setText(caption);
    label->setWordWrap(true);
    label->setBuddy(box);
    // Beside a tall box (a group of buttons) the caption stays on its first line.
    const bool tall = box->sizeHint().height() > 2 * label->sizeHint().height();
    m_grid->addWidget(label, row, 0, tall ? Qt::AlignTop : Qt::Alignment());
    if (code) {
        auto* number = new QLabel(QString::fromLatin1(code), this);
        number->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        m_grid->addWidget(number, row, 1);
    }
    m_grid->addWidget(box, row, 2);
}

void SamplePage::makeDoor(DoubleLineEdit* box, int id)
{
    box->setAttID(id);
    if (m_forwardMap.count(id))
        box->setToolTip(say("Comes from another form: click to show it",
                            "Vient d'un autre formulaire : cliquez pour l'afficher"));
    else
        box->setToolTip(say("Click or press a key to open the worksheet",
                            "Cliquez ou appuyez sur une touche pour ouvrir la feuille de calcul"));
}

void SamplePage::finish()
{
    m_grid->setRowStretch(m_grid->rowCount(), 1);
}

void SamplePage::bindAmount(DoubleLineEdit* box, CFloatField& field)
{
    m_floatEdits[box->objectName()] = box;
    m_floatFields[box] = &field;
    connect(box, &QLineEdit::editingFinished, this, &BaseTaxPage::onFloatEditFinished);
}

void SamplePage::bindShown(DoubleLineEdit* box, CFloatField& field)
{
    m_shownFloatEdits[box->objectName()] = box;
    m_shownFloatFields[box] = &field;
    box->setReadOnly(true);
}

void SamplePage::bindText(QLineEdit* box, CStringField& field)
{
    m_stringEdits[box->objectName()] = box;
    m_stringFields[box] = &field;
    connect(box, &QLineEdit::editingFinished, this, &BaseTaxPage::onStringEditFinished);
}

void SamplePage::bindShownText(QLineEdit* box, CStringField& field)
{
    m_shownStringEdits[box->objectName()] = box;
    m_shownStringFields[box] = &field;
    box->setReadOnly(true);
}

void SamplePage::bindNotes(QPlainTextEdit* box, CStringField& field)
{
    m_multiLineEdits[box->objectName()] = box;
    m_multiLineFields[box] = &field;
    connect(box, &QPlainTextEdit::textChanged, this, &BaseTaxPage::onMultiLineEditFinished);
}

void SamplePage::bindCheck(QCheckBox* box, CField& field)
{
    m_checkEdits[box->objectName()] = box;
    m_checkFields[box] = &field;
    connect(box, &QCheckBox::stateChanged, this, &BaseTaxPage::onBoolChanged);
}

void SamplePage::bindRadio(QButtonGroup* group, CField& field)
{
    m_radioEdits[group->objectName()] = group;
    m_radioFields[group] = &field;
    connect(group, &QButtonGroup::idClicked, this, &BaseTaxPage::onRadioIdClicked);
}

void SamplePage::bindCombo(CT1ComboBox* box, CField& field)
{
    m_comboEdits[box->objectName()] = box;
    m_comboFields[box] = &field;
    connect(box, &QComboBox::currentIndexChanged, this, &BaseTaxPage::onCmbCurIndexChanged);
}

void SamplePage::bindDate(StyledDateEdit* box, CDateField& field)
{
    m_dateEdits[box->objectName()] = box;
    m_dateFields[box] = &field;
    connect(box, &QDateEdit::dateChanged, this, &BaseTaxPage::onDateChanged);
}

IdentificationPage::IdentificationPage(SampleForm* form, QWidget* window)
    : SamplePage(say("Identification", "Identification"), QStringLiteral("identification"), form,
                 window)
    , m_t1(form)
{
    addHeading(say("About you", "Renseignements sur vous"));
    m_name = addLine<StringLineEdit>("fld_Name", say("Name", "Nom"), nullptr);
    m_sin = addLine<StringLineEdit>(
        "fld_SIN", say("Social insurance number", "Numéro d'assurance sociale"), nullptr);
    m_sin->setMaxLength(9);
    m_birth = addLine<StyledDateEdit>("fld_BirthDate", say("Date of birth", "Date de naissance"),
                                      nullptr);
    m_province = addLine<CT1ComboBox>(
        "fld_Province",
        say("Province of residence on December 31", "Province de résidence au 31 décembre"),
        nullptr);
    m_province->LoadProvs();

    // Marital status: one radio button per status, numbered as the field keeps it.
    auto* statuses = new QWidget(this);
    auto* statusGrid = new QGridLayout(statuses);
    statusGrid->setContentsMargins(0, 0, 0, 0);
    m_marital = new QButtonGroup(this);
    m_marital->setObjectName(QStringLiteral("fld_Marital"));
    const char* const names[][2]
        = { { "Married", "Marié(e)" },    { "Common-law", "Conjoint(e) de fait" },
            { "Widowed", "Veuf(ve)" },    { "Divorced", "Divorcé(e)" },
            { "Separated", "Séparé(e)" }, { "Single", "Célibataire" } };
    for (int id = 1; id <= 6; ++id) {
        auto* button = new QRadioButton(say(names[id - 1][0], names[id - 1][1]), statuses);
        button->setObjectName(QStringLiteral("fld_Marital_%1").arg(id));
        m_marital->addButton(button, id);
        statusGrid->addWidget(button, (id - 1) / 2, (id - 1) % 2);
    }
    placeLine(statuses, say("Marital status on December 31", "État civil au 31 décembre"), nullptr);

    m_resident = addLine<StyledCheckBox>(
        "fld_Resident", say("Resident of Canada all year", "Résident du Canada toute l'année"),
        nullptr);
    m_resident->setText(say("Yes", "Oui"));
    m_entry = addLine<StyledDateEdit>(
        "fld_EntryDate", say("Date of entry into Canada", "Date d'entrée au Canada"), nullptr);
    m_employer = addLine<StringLineEdit>("fld_Employer", say("Employer", "Employeur"), nullptr);
    for (StyledDateEdit* date : { m_birth, m_entry })
        date->setDisplayFormat(QStringLiteral("yyyy/MM/dd"));

    addHeading(say("Notes", "Notes"));
    m_notes = new QPlainTextEdit(this);
    m_notes->setObjectName(QStringLiteral("fld_Notes"));
    m_notes->setMaximumHeight(90);
    m_grid->addWidget(m_notes, m_grid->rowCount(), 0, 1, 3);
    finish();
}

void IdentificationPage::AssociateFormData()
{
    bindText(m_name, m_t1->fld_Name);
    bindText(m_sin, m_t1->fld_SIN);
    bindDate(m_birth, m_t1->fld_BirthDate);
    bindCombo(m_province, m_t1->fld_Province);
    bindRadio(m_marital, m_t1->fld_Marital);
    bindCheck(m_resident, m_t1->fld_Resident);
    bindDate(m_entry, m_t1->fld_EntryDate);
    bindText(m_employer, m_t1->fld_Employer);
    bindNotes(m_notes, m_t1->fld_Notes);
}

IncomePage::IncomePage(SampleForm* form, QWidget* window)
    : SamplePage(say("Income", "Revenus"), QStringLiteral("income"), form, window)
    , m_t1(form)
{
    addHeading(say("Total income", "Revenu total"));
    m_employment = addLine<DoubleLineEdit>("fld_10100",
                                           say("Employment income", "Revenus d'emploi"), "10100");
    m_interest
        = addLine<CForwardEdit>("fld_12100",
                                say("Interest and other investment income (from Schedule 4)",
                                    "Intérêts et autres revenus de placements (de l'annexe 4)"),
                                "12100");
    m_forwardMap[12100] = ENUM_FORM_S4;
    m_interest->setForwardFormType(ENUM_FORM_S4);
    makeDoor(m_interest, 12100);
    m_other = addLine<DoubleLineEdit>("fld_13000", say("Other income", "Autres revenus"), "13000");
    m_total = addLine<DoubleLineEdit>("fld_15000", say("Total income", "Revenu total"), "15000");
    m_percent = addLine<DoubleLineEdit>("fld_MyPercent",
                                        say("Part of the year resident in Canada (%)",
                                            "Partie de l'année où vous résidiez au Canada (%)"),
                                        nullptr);
    m_percent->m_decimals = 4;
    addNote(say("Line 15000 adds up the lines above it. Line 12100 is Schedule 4's total: "
                "click it to go there.",
                "La ligne 15000 additionne les lignes qui la précèdent. La ligne 12100 est "
                "le total de l'annexe 4 : cliquez-la pour y aller."));
    finish();
}

void IncomePage::AssociateFormData()
{
    bindAmount(m_employment, m_t1->fld_10100);
    bindShown(m_interest, m_t1->fld_12100);
    bindAmount(m_other, m_t1->fld_13000);
    bindShown(m_total, m_t1->fld_15000);
    bindAmount(m_percent, m_t1->fld_MyPercent);
}

CreditsPage::CreditsPage(SampleReturn* data, QWidget* window)
    : SamplePage(say("Credits", "Crédits"), QStringLiteral("credits"), &data->t1, window)
    , m_return(data)
{
    addHeading(say("Amounts claimed", "Montants demandés"));
    m_name = addLine<StringLineEdit>("fld_Name_shown", say("Taxpayer", "Contribuable"), nullptr);
    m_age = addLine<DoubleLineEdit>("fld_30100", say("Age amount", "Montant en raison de l'âge"),
                                    "30100");
    makeDoor(m_age, 30100);
    m_caregiver = addLine<DoubleLineEdit>("fld_58400",
                                          say("Caregiver amount, all dependants",
                                              "Montant pour aidant naturel, "
                                              "toutes les personnes à charge"),
                                          "58400");
    makeDoor(m_caregiver, 58400);
    m_total = addLine<DoubleLineEdit>(
        "fld_Credits", say("Total of the amounts claimed", "Total des montants demandés"), nullptr);
    addNote(say("The age amount and the caregiver amount come from worksheets: click a box, "
                "or press a key in it, to open its worksheet.",
                "Le montant en raison de l'âge et le montant pour aidant naturel viennent de "
                "feuilles de calcul : cliquez une case, ou appuyez sur une touche dans la "
                "case, pour ouvrir sa feuille."));

    addHeading(say("Dependants", "Personnes à charge"));
    DependantInfoStruct& deps = data->dependants;
    for (int i = 0; i < deps.m_nCount; ++i) {
        _OneDependantInfoStru& dep = deps.m_pData[i];
        CString name;
        dep.getName(name);
        QString text = say("%1. %2, born %3, net income %4", "%1. %2, né(e) le %3, revenu net %4")
                           .arg(i + 1)
                           .arg(name, dep.m_BirthDate.toString(QStringLiteral("yyyy-MM-dd")))
                           .arg(dep.m_NetIncome, 0, 'f', 2);
        if (dep.IsDisabled())
            text += say(", disabled: caregiver worksheet",
                        ", handicapé(e) : feuille d'aidant naturel");
        else if (dep.IsInfirmOrDisabled())
            text += say(", infirm: caregiver worksheet",
                        ", ayant une déficience : feuille d'aidant naturel");
        auto* row = new QLabel(text, this);
        row->setObjectName(QStringLiteral("dep_%1").arg(i + 1));
        m_grid->addWidget(row, m_grid->rowCount(), 0, 1, 3);
    }
    finish();
}

void CreditsPage::AssociateFormData()
{
    SampleForm& t1 = m_return->t1;
    bindShownText(m_name, t1.fld_Name);
    bindShown(m_age, t1.fld_30100);
    bindShown(m_caregiver, t1.fld_58400);
    bindShown(m_total, t1.fld_Credits);
}

PpgWizardPage* CreditsPage::getWorksheetEditDlg(int id, long, QString&)
{
    if (id != 30100)
        return nullptr;
    return new WSAgeAmount_tab1(&m_return->t1.ageWS, &m_return->t1, nullptr);
}

int CreditsPage::getWorksheetEditDlg(int id, long, QString&, std::list<PpgWizardPage*>& pages)
{
    if (id != 58400)
        return 0;
    // One tab per dependant the worksheet may be claimed for, titled by name.
    for (int row : m_return->caregiverRows()) {
        auto* page = new WSCaregiverAmt_Dep(&m_return->t1.caregivers[row], &m_return->t1, nullptr);
        page->m_tabTitle = QString::fromLatin1(m_return->dependants.m_pData[row].m_FirstName);
        pages.push_back(page);
    }
    return int(pages.size());
}

Schedule4Page::Schedule4Page(SampleSchedule4* form, QWidget* window)
    : SamplePage(say("Schedule 4", "Annexe 4"), QStringLiteral("schedule4"), form, window)
    , m_s4(form)
{
    addHeading(
        say("Interest and other investment income", "Intérêts et autres revenus de placements"));
    m_payer1 = addLine<StringLineEdit>("fld_Payer1", say("First payer", "Premier payeur"), nullptr);
    m_interest1 = addLine<DoubleLineEdit>("fld_Interest1", say("Interest", "Intérêts"), nullptr);
    m_payer2
        = addLine<StringLineEdit>("fld_Payer2", say("Second payer", "Deuxième payeur"), nullptr);
    m_interest2 = addLine<DoubleLineEdit>("fld_Interest2", say("Interest", "Intérêts"), nullptr);
    m_total
        = addLine<DoubleLineEdit>("fld_Total",
                                  say("Total: enter it on line 12100 of the return",
                                      "Total : inscrivez-le à la ligne 12100 de la déclaration"),
                                  "12100");
    finish();
}

void Schedule4Page::AssociateFormData()
{
    bindText(m_payer1, m_s4->fld_Payer1);
    bindAmount(m_interest1, m_s4->fld_Interest1);
    bindText(m_payer2, m_s4->fld_Payer2);
    bindAmount(m_interest2, m_s4->fld_Interest2);
    bindShown(m_total, m_s4->fld_Total);
}
