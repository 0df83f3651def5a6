<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_CA" sourcelanguage="en">
<context>
    <name>BaseTaxPage</name>
    <message>
        <source>Page %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Federal Age Amount Worksheet (30100)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Federal Pension Amount Worksheet (31400)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Provincial Age Amount Worksheet (58080)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Provincial Amount for Infirm Dependant Aged 18+ (58200)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Prvocincial Adoption Amount Worksheet (58330)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Caregiver Amount (58400)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Disability Amount for Self (58440)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>COneQOneChkboxDialog</name>
    <message>
        <source>OK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CT1ComboBox</name>
    <message>
        <source>Son</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Daughter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Father</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mother</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Grandfather</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>GrandMother</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>GrandSon</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>GrandDaughter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Brother</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sister</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nephew</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Niece</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Uncle</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Aunt</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Other</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Normal</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Infirm</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Disabled</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose A Province</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Alberta</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>British Columbia</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Manitoba</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New Brunswick</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Newfoundland And Labrador</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nova Scotia</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Northwest Territory</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nunavut</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ontario</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Prince Edward Island</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quebec</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Saskatchewan</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Yukon Territory</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Non-Resident</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Non-Resident Under Section 216</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Non-Resident Under Section 217</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Deemed Resident</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Outside Canada</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select a program</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a certificate program</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a diploma program</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>3-year undergraduate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>4-year undergraduate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose a Form Type</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DependantInfoStruct</name>
    <message>
        <source>No dependant information was entered.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please select a dependant</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DlgMsgWithLink</name>
    <message>
        <source>Dialog</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>StringLineEdit</name>
    <message>
        <source>press key or click to launch worksheet</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>WSMultiDepDlg</name>
    <message>
        <source>Dialog</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tab 1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tab 2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>_OneDependantInfoStru</name>
    <message>
        <source>&lt;FirstName&gt;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;LastName&gt;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> - net inc.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;unknown name&gt;</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>dlgGeneralInput</name>
    <message>
        <source>Dialog</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>validateAddr</name>
    <message>
        <source>State</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Postal code</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Province</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Country</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Street number/name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>City</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Street address</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
