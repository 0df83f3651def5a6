#include "catalogue.h"

#include <QTest>

#include <climits>
#include <cstring>

namespace {

enum Column { PdfName, LayoutFile, LayoutSuffix, RowFlag, AlwaysImport };

// The rows of Global_Forms_Info whose column matches.
QList<int> formRows(Column column, const QByteArray& text)
{
    QList<int> rows;
    for (int i = 0; i < ENUM_FORM_COUNT; ++i) {
        const STRUCT_FORM_INFO& f = Global_Forms_Info[i];
        bool match = false;
        switch (column) {
        case PdfName:
            match = text == f.pdfName;
            break;
        case LayoutFile:
            match = text == f.layoutFile;
            break;
        case LayoutSuffix:
            match = QByteArray(f.layoutFile).endsWith(text);
            break;
        case RowFlag:
            match = f.rowFlag;
            break;
        case AlwaysImport:
            match = f.alwaysImport;
            break;
        }
        if (match)
            rows << i;
    }
    return rows;
}

QList<int> tableForms(const STRUCT_FORM_REQUIRED* table, int count, bool mandatoryOnly)
{
    QList<int> forms;
    for (int i = 0; i < count; ++i) {
        if (!mandatoryOnly || table[i].mandatory)
            forms << int(table[i].type);
    }
    return forms;
}

} // namespace

class tst_Catalogue : public QObject
{
    Q_OBJECT
private slots:
    void rowsSitAtTheirNumber();
    void tellingRows_data();
    void tellingRows();
    void formColumns_data();
    void formColumns();
    void federalTable();
    void provinceTables_data();
    void provinceTables();

    void isFormMandatory_data();
    void isFormMandatory();
    void getFormProv_data();
    void getFormProv();
    void caisForm_data();
    void caisForm();
    void isFormExpired_data();
    void isFormExpired();
    void isSlipSharable_data();
    void isSlipSharable();
    void isFormSharable_data();
    void isFormSharable();
    void isMultipleForm_data();
    void isMultipleForm();
};

void tst_Catalogue::rowsSitAtTheirNumber()
{
    for (int i = 0; i < ENUM_FORM_COUNT; ++i) {
        const STRUCT_FORM_INFO& f = Global_Forms_Info[i];
        QCOMPARE(int(f.type), i);
        const bool ownName = i == 0 || (i >= 201 && i <= 203);
        QVERIFY2(ownName || !strncmp(f.dataClass, "TaxData_", 8), f.dataClass);
    }
    for (int i = 0; i < ENUM_SLIP_COUNT; ++i) {
        const STRUCT_SLIP_INFO& s = Global_Slips_Info[i];
        QCOMPARE(int(s.type), i);
        QVERIFY2(i == 0 || !strncmp(s.dataClass, "SlipData_", 9), s.dataClass);
    }
}

void tst_Catalogue::tellingRows_data()
{
    QTest::addColumn<int>("form");
    QTest::addColumn<QByteArray>("title");
    QTest::addColumn<QByteArray>("shortName");
    QTest::addColumn<QByteArray>("dataClass");
    QTest::addColumn<QByteArray>("pdf");
    QTest::addColumn<QByteArray>("layout");
    QTest::newRow("0, the empty row") << 0 << QByteArray("N/A") << QByteArray("N/A")
                                      << QByteArray("None") << QByteArray() << QByteArray();
    QTest::newRow("1, the general form")
        << 1 << QByteArray("T1 General") << QByteArray("T1 General") << QByteArray("TaxData_T1")
        << QByteArray("5000-r-25e.pdf") << QByteArray("t1notused.xmd");
    QTest::newRow("8, a title cut short")
        << 8 << QByteArray("Schedule 8 - ") << QByteArray("Schedule 8") << QByteArray("TaxData_S8")
        << QByteArray("noprint.pdf") << QByteArray("noprint.xml");
    QTest::newRow("162 repeats the title and PDF of 160")
        << 162 << QByteArray("T1255 - Taxes") << QByteArray("T5013_SchA")
        << QByteArray("TaxData_T5013_SchA") << QByteArray("t1255-25e.pdf")
        << QByteArray("t1255.xml");
    QTest::newRow("164, the last of the three")
        << 164 << QByteArray("T1255 - Taxes") << QByteArray("T5013_SchC")
        << QByteArray("TaxData_T5013_SchC") << QByteArray("t1255-25e.pdf")
        << QByteArray("t1255.xml");
    QTest::newRow("200, its short name misspelt")
        << 200 << QByteArray("Unused Form") << QByteArray("Unsued")
        << QByteArray("TaxData_UnusedForm") << QByteArray("noprint.pdf")
        << QByteArray("noprint.xml");
    QTest::newRow("201, an enumerator as data class")
        << 201 << QByteArray("T2057 - ") << QByteArray("T2057") << QByteArray("ENUM_FORM_T2T2057")
        << QByteArray("t2057-22e.pdf") << QByteArray("t2057.xml");
    QTest::newRow("203, the last of the three")
        << 203 << QByteArray("T2059 - ") << QByteArray("T2059") << QByteArray("ENUM_FORM_T2T2059")
        << QByteArray("t2059-22e.pdf") << QByteArray("t2059.xml");
}

void tst_Catalogue::tellingRows()
{
    QFETCH(int, form);
    const STRUCT_FORM_INFO& f = Global_Forms_Info[form];
    QTEST(QByteArray(f.title), "title");
    QTEST(QByteArray(f.shortName), "shortName");
    QTEST(QByteArray(f.dataClass), "dataClass");
    QTEST(QByteArray(f.pdfName), "pdf");
    QTEST(QByteArray(f.layoutFile), "layout");
}

void tst_Catalogue::formColumns_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QList<int>>("rows");
    QTest::newRow("forms without print")
        << int(PdfName) << QByteArray("noprint.pdf")
        << QList<int>({ 2, 8, 19, 33, 34, 54, 56, 58, 89, 123, 159, 165, 200 });
    QTest::newRow("forms out of use")
        << int(PdfName) << QByteArray("expired.pdf") << QList<int>({ 30, 114, 120, 142, 151, 166 });
    QTest::newRow("no PDF") << int(PdfName) << QByteArray("") << QList<int>({ 0, 38, 46 });
    QTest::newRow("no layout") << int(LayoutFile) << QByteArray("")
                               << QList<int>({ 0, 19, 33, 38, 46, 159, 165 });
    QTest::newRow("unprinted layout")
        << int(LayoutFile) << QByteArray("noprint.xml") << QList<int>({ 8, 200 });
    QTest::newRow("layouts of the older kind")
        << int(LayoutSuffix) << QByteArray(".xmd") << QList<int>({ 1, 2, 93 });
    QTest::newRow("flag for applications")
        << int(RowFlag) << QByteArray()
        << QList<int>({ 1,  2,  6,  13, 24, 25, 41, 45,  54,  60, 62,
                        63, 66, 70, 74, 78, 81, 84, 126, 127, 166 });
    QTest::newRow("always imported")
        << int(AlwaysImport) << QByteArray()
        << QList<int>({ 1, 2, 3, 6, 12, 15, 19, 21, 22, 24, 25, 33, 38, 41, 42, 45, 131, 165 });
}

void tst_Catalogue::formColumns()
{
    QFETCH(int, column);
    QFETCH(QByteArray, text);
    QTEST(formRows(Column(column), text), "rows");
}

void tst_Catalogue::federalTable()
{
    QCOMPARE(
        tableForms(Federal_Forms_Info, Federal_Forms_Num, false),
        QList<int>({ 1,  3,   4,   210, 6,   119, 7,   150, 9,   10,  11,  133, 157, 139, 205, 57,
                     39, 116, 52,  102, 136, 137, 138, 145, 148, 149, 171, 96,  181, 173, 174, 40,
                     31, 105, 13,  14,  32,  117, 118, 101, 113, 17,  213, 29,  18,  103, 107, 207,
                     37, 20,  199, 193, 23,  124, 35,  49,  55,  28,  53,  93,  209 }));
    QCOMPARE(tableForms(Federal_Forms_Info, Federal_Forms_Num, true), QList<int>({ 1, 96, 93 }));
    QList<int> firstModeOnly;
    for (int i = 0; i < Federal_Forms_Num; ++i) {
        if (Federal_Forms_Info[i].modeMask != 3)
            firstModeOnly << int(Federal_Forms_Info[i].type) << Federal_Forms_Info[i].modeMask;
    }
    QCOMPARE(firstModeOnly, QList<int>({ 96, 1, 181, 1, 117, 1, 53, 1 }));
}

void tst_Catalogue::provinceTables_data()
{
    QTest::addColumn<int>("province");
    QTest::addColumn<QList<int>>("forms");
    QTest::addColumn<QList<int>>("mandatory");
    QTest::newRow("0, no province") << 0 << QList<int>() << QList<int>();
    QTest::newRow("1, AB") << 1 << QList<int>({ 45, 47, 48 }) << QList<int>({ 45 });
    QTest::newRow("2, BC") << 2 << QList<int>({ 41, 42, 43, 44, 143, 50, 121, 122, 146, 208 })
                           << QList<int>({ 41, 42 });
    QTest::newRow("3, MB") << 3 << QList<int>({ 60, 61, 126, 90, 91, 87, 98, 130, 152, 211, 132 })
                           << QList<int>({ 60, 61, 126 });
    QTest::newRow("4, NB") << 4 << QList<int>({ 62, 94, 95, 153, 99 }) << QList<int>({ 62 });
    QTest::newRow("5, NL") << 5 << QList<int>({ 63, 188, 64, 65, 128, 108, 129 })
                           << QList<int>({ 63, 188 });
    QTest::newRow("6, NS") << 6 << QList<int>({ 70, 71, 72, 73, 112 }) << QList<int>({ 70, 71 });
    QTest::newRow("7, NT") << 7 << QList<int>({ 66, 67, 68, 69 }) << QList<int>({ 66, 67 });
    QTest::newRow("8, NU") << 8 << QList<int>({ 74, 75, 76, 77 }) << QList<int>({ 74, 75 });
    QTest::newRow("9, ON") << 9 << QList<int>({ 24, 169, 25, 170, 140, 26, 27, 106 })
                           << QList<int>({ 24, 169, 25, 140 });
    QTest::newRow("10, PE") << 10 << QList<int>({ 78, 79, 80 }) << QList<int>({ 78 });
    QTest::newRow("11, QC has no table") << 11 << QList<int>() << QList<int>();
    QTest::newRow("12, SK") << 12 << QList<int>({ 81, 127, 82, 83, 189, 88, 206, 144 })
                            << QList<int>({ 81, 127 });
    QTest::newRow("13, YT") << 13 << QList<int>({ 84, 86, 85, 110, 111, 172, 135 })
                            << QList<int>({ 84, 86, 85, 172 });
}

void tst_Catalogue::provinceTables()
{
    QFETCH(int, province);
    const STRUCT_PROVINCE_FORMS& p = Province_Forms_Info[province];
    QTEST(tableForms(p.forms, p.count, false), "forms");
    QTEST(tableForms(p.forms, p.count, true), "mandatory");
    QCOMPARE(p.forms == nullptr, p.count == 0);
}

void tst_Catalogue::isFormMandatory_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("province");
    QTest::addColumn<int>("form");
    QTest::addColumn<bool>("mandatory");
    // Federal forms: the row's flag and its mode mask; the province plays no part.
    QTest::newRow("T1 in the first mode") << 1 << 0 << 1 << true;
    QTest::newRow("T1 in the second mode") << 2 << 9 << 1 << true;
    QTest::newRow("T1 in mode 0") << 0 << 9 << 1 << false;
    QTest::newRow("T1 in a mode beside its mask") << 4 << 9 << 1 << false;
    QTest::newRow("T183 in the first mode") << 1 << 9 << 96 << true;
    QTest::newRow("T183 masked out of the second") << 2 << 9 << 96 << false;
    QTest::newRow("summary, near the end of the table") << 3 << 9 << 93 << true;
    QTest::newRow("listed federal form, not required") << 3 << 9 << 3 << false;
    QTest::newRow("form in no table") << 3 << 1 << 46 << false;
    // Provincial forms: the return's own province decides.
    QTest::newRow("AB428 for Alberta, the first province") << 1 << 1 << 45 << true;
    QTest::newRow("YT428 for Yukon, the last province") << 1 << 13 << 84 << true;
    QTest::newRow("ON428 for Ontario") << 1 << 9 << 24 << true;
    QTest::newRow("ON428 not for Alberta") << 1 << 1 << 24 << false;
    QTest::newRow("ON428 without a province") << 1 << 0 << 24 << false;
    QTest::newRow("ON428 for a non-resident, one past the last") << 1 << 14 << 24 << false;
    QTest::newRow("ON428 for Quebec's empty table") << 1 << 11 << 24 << false;
    QTest::newRow("ON479-A listed, not required") << 3 << 9 << 170 << false;
    QTest::newRow("province INT_MIN") << 1 << INT_MIN << 24 << false;
    QTest::newRow("province INT_MAX") << 1 << INT_MAX << 24 << false;
    QTest::newRow("form -1") << 0xff << 9 << -1 << false;
    QTest::newRow("form one past the catalogue") << 0xff << 9 << int(ENUM_FORM_COUNT) << false;
}

void tst_Catalogue::isFormMandatory()
{
    QFETCH(int, mode);
    QFETCH(int, province);
    QFETCH(int, form);
    QTEST(IsFormMandatory(static_cast<unsigned char>(mode), ENUMTYPE_PROVINCE(province),
                          ENUMTYPE_FORM(form)),
          "mandatory");
}

void tst_Catalogue::getFormProv_data()
{
    QTest::addColumn<int>("form");
    QTest::addColumn<int>("province");
    QTest::newRow("first form of the first table") << 45 << 1;
    QTest::newRow("last form of the first table") << 48 << 1;
    QTest::newRow("ON428") << 24 << 9;
    QTest::newRow("first form of the last table") << 84 << 13;
    QTest::newRow("last form of the last table") << 135 << 13;
    QTest::newRow("federal form") << 1 << 0;
    QTest::newRow("form in no table") << 46 << 0;
    QTest::newRow("form -1") << -1 << 0;
    QTest::newRow("form one past the catalogue") << int(ENUM_FORM_COUNT) << 0;
    QTest::newRow("form INT_MIN") << INT_MIN << 0;
}

void tst_Catalogue::getFormProv()
{
    QFETCH(int, form);
    QTEST(int(::getFormProv(ENUMTYPE_FORM(form))), "province");
}

void tst_Catalogue::caisForm_data()
{
    QTest::addColumn<int>("province");
    QTest::addColumn<int>("form");
    QTest::newRow("Nunavut has none") << 8 << 0;
    QTest::newRow("Quebec has none") << 11 << 0;
    QTest::newRow("PEI, first of the T1163 list") << 10 << 15;
    QTest::newRow("Ontario files T1163") << 9 << 15;
    QTest::newRow("Saskatchewan files T1163") << 12 << 15;
    QTest::newRow("Alberta, last of the T1163 list") << 1 << 15;
    QTest::newRow("Manitoba files T1273") << 3 << 109;
    QTest::newRow("no province: the default T1273") << 0 << 109;
    QTest::newRow("non-resident: the default T1273") << 14 << 109;
    QTest::newRow("province INT_MIN: the default T1273") << INT_MIN << 109;
}

void tst_Catalogue::caisForm()
{
    QFETCH(int, province);
    QTEST(int(GetCAISFormTypeFromProv(ENUMTYPE_PROVINCE(province))), "form");
}

void tst_Catalogue::isFormExpired_data()
{
    QTest::addColumn<int>("form");
    QTest::addColumn<int>("province");
    QTest::addColumn<bool>("expired");
    QTest::newRow("first of the list") << 46 << 9 << true;
    QTest::newRow("last of the list") << 117 << 9 << true;
    QTest::newRow("T626 in Ontario") << 30 << 9 << true;
    QTest::newRow("T626 without a province") << 30 << 0 << true;
    QTest::newRow("T626 with any number as province") << 30 << INT_MIN << true;
    QTest::newRow("expired.pdf row not in the list") << 114 << 9 << false;
    QTest::newRow("T1 is current") << 1 << 9 << false;
    QTest::newRow("form -1") << -1 << 9 << false;
    QTest::newRow("form one past the catalogue") << int(ENUM_FORM_COUNT) << 9 << false;
}

void tst_Catalogue::isFormExpired()
{
    QFETCH(int, form);
    QFETCH(int, province);
    QTEST(IsFormExpired(ENUMTYPE_FORM(form), ENUMTYPE_PROVINCE(province)), "expired");
}

void tst_Catalogue::isSlipSharable_data()
{
    QTest::addColumn<int>("slip");
    QTest::addColumn<bool>("sharable");
    QTest::newRow("T4RIF, one below T5") << 7 << false;
    QTest::newRow("T5") << 8 << true;
    QTest::newRow("T3") << 9 << true;
    QTest::newRow("T5003, one above T3") << 10 << false;
    QTest::newRow("T4F, one below T5013") << 12 << false;
    QTest::newRow("T5013") << 13 << true;
    QTest::newRow("T4PS, one above T5013") << 14 << false;
    QTest::newRow("slip -1") << -1 << false;
    QTest::newRow("slip one past the table") << int(ENUM_SLIP_COUNT) << false;
}

void tst_Catalogue::isSlipSharable()
{
    QFETCH(int, slip);
    QTEST(IsSlipSharable(ENUMTYPE_SLIP(slip)), "sharable");
}

void tst_Catalogue::isFormSharable_data()
{
    QTest::addColumn<int>("form");
    QTest::addColumn<bool>("sfd");
    QTest::addColumn<bool>("sharable");
    QTest::newRow("schedule 2, one below schedule 3") << 3 << false << false;
    QTest::newRow("schedule 3") << 4 << false << true;
    QTest::newRow("schedule 4, one above schedule 3") << 5 << false << false;
    QTest::newRow("T776, first of the SFD list") << 12 << true << true;
    QTest::newRow("T1255, last of the SFD list") << 160 << true << true;
    QTest::newRow("T1159, beside the last") << 161 << false << false;
}

void tst_Catalogue::isFormSharable()
{
    QFETCH(int, form);
    QTEST(IsSFDForm(ENUMTYPE_FORM(form)), "sfd");
    QTEST(IsFormSharable(ENUMTYPE_FORM(form)), "sharable");
}

void tst_Catalogue::isMultipleForm_data()
{
    QTest::addColumn<int>("form");
    QTest::addColumn<bool>("multiple");
    QTest::newRow("T776, first of the SFD list") << 12 << true;
    QTest::newRow("T1255, last of the SFD list") << 160 << true;
    QTest::newRow("T2209") << 35 << true;
    QTest::newRow("T2036, one below T2209") << 34 << false;
    QTest::newRow("T1139, one above T2209") << 36 << false;
    QTest::newRow("T1M") << 102 << true;
    QTest::newRow("T1134 supplement") << 178 << true;
    QTest::newRow("T1134, one below the supplement") << 177 << false;
    QTest::newRow("T777 Covid-19, one above the supplement") << 179 << false;
    QTest::newRow("schedule 3 is sharable, not multiple") << 4 << false;
}

void tst_Catalogue::isMultipleForm()
{
    QFETCH(int, form);
    QTEST(IsMultipleForm(ENUMTYPE_FORM(form)), "multiple");
}

QTEST_GUILESS_MAIN(tst_Catalogue)
#include "tst_catalogue.moc"
