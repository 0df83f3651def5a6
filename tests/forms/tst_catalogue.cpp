#include "catalogue.h"

#include <QTest>

#include <climits>
#include <cstring>

template<typename Pred> static QList<int> formRows(Pred pred)
{
    QList<int> rows;
    for (int i = 0; i < ENUM_FORM_COUNT; ++i)
        rows << (pred(Global_Forms_Info[i]) ? i : -1);
    rows.removeAll(-1);
    return rows;
}

static QList<int> rowsWith(const char* const STRUCT_FORM_INFO::*column, const char* text)
{
    return formRows([=](const STRUCT_FORM_INFO& f) { return !strcmp(f.*column, text); });
}
static QList<int> pdfRows(const char* n)
{
    return rowsWith(&STRUCT_FORM_INFO::pdfName, n);
}
static QList<int> layoutRows(const char* n)
{
    return rowsWith(&STRUCT_FORM_INFO::layoutFile, n);
}

static void row(const QByteArray& why, int got, int expected)
{
    QTest::newRow(why.constData()) << got << expected;
}

static ENUMTYPE_FORM form(int n)
{
    return ENUMTYPE_FORM(n);
}
static ENUMTYPE_PROVINCE prov(int n)
{
    return ENUMTYPE_PROVINCE(n);
}

class tst_Catalogue : public QObject
{
    Q_OBJECT
private slots:
    void rowsSitAtTheirNumber()
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

    void fileNames()
    {
        QCOMPARE(pdfRows("noprint.pdf"),
                 QList<int>({ 2, 8, 19, 33, 34, 54, 56, 58, 89, 123, 159, 165, 200 }));
        QCOMPARE(pdfRows("expired.pdf"), QList<int>({ 30, 114, 120, 142, 151, 166 }));
        QCOMPARE(pdfRows(""), QList<int>({ 0, 38, 46 }));
        QCOMPARE(layoutRows(""), QList<int>({ 0, 19, 33, 38, 46, 159, 165 }));
        QCOMPARE(layoutRows("noprint.xml"), QList<int>({ 8, 200 }));
        QCOMPARE(formRows([](const STRUCT_FORM_INFO& f) { return strstr(f.layoutFile, ".xmd"); }),
                 QList<int>({ 1, 2, 93 }));
        QCOMPARE(formRows([](const STRUCT_FORM_INFO& f) { return f.rowFlag; }),
                 QList<int>({ 1,  2,  6,  13, 24, 25, 41, 45,  54,  60, 62,
                              63, 66, 70, 74, 78, 81, 84, 126, 127, 166 }));
        QCOMPARE(
            formRows([](const STRUCT_FORM_INFO& f) { return f.alwaysImport; }),
            QList<int>({ 1, 2, 3, 6, 12, 15, 19, 21, 22, 24, 25, 33, 38, 41, 42, 45, 131, 165 }));
    }

    void oddRowsKeptAsShipped()
    {
        for (int i : { 162, 163, 164 }) {
            QCOMPARE(Global_Forms_Info[i].title, "T1255 - Taxes");
            QCOMPARE(Global_Forms_Info[i].pdfName, Global_Forms_Info[160].pdfName);
        }
        QCOMPARE(Global_Forms_Info[201].dataClass, "ENUM_FORM_T2T2057");
        QCOMPARE(Global_Forms_Info[203].dataClass, "ENUM_FORM_T2T2059");
        QCOMPARE(Global_Forms_Info[8].title, "Schedule 8 - ");
        QCOMPARE(Global_Forms_Info[200].shortName, "Unsued");
    }

    void tableShapes()
    {
        QCOMPARE(Federal_Forms_Num, 61);
        QCOMPARE(SFD_Forms_Num, 11);
        QCOMPARE(s_expired_forms_num, 20);
        const int counts[14] = { 0, 3, 10, 11, 5, 7, 5, 4, 4, 8, 3, 0, 8, 7 };
        for (int p = 0; p < 14; ++p) {
            QCOMPARE(Province_Forms_Info[p].count, counts[p]);
            QCOMPARE(Province_Forms_Info[p].forms == nullptr, counts[p] == 0);
        }
    }

    void predicates_data()
    {
        QTest::addColumn<int>("got");
        QTest::addColumn<int>("expected");
        row("T1 required in the first mode", IsFormMandatory(1, prov(0), form(1)), 1);
        row("T1 required in the second mode", IsFormMandatory(2, prov(9), form(1)), 1);
        row("T1 required in both modes", IsFormMandatory(3, prov(1), form(1)), 1);
        row("no mode, nothing required", IsFormMandatory(0, prov(9), form(1)), 0);
        row("T183 in the first mode", IsFormMandatory(1, prov(9), form(96)), 1);
        row("T183 masked out of the second", IsFormMandatory(2, prov(9), form(96)), 0);
        row("ON428 for Ontario", IsFormMandatory(1, prov(9), form(24)), 1);
        row("ON428 not for Alberta", IsFormMandatory(1, prov(1), form(24)), 0);
        row("ON428 without a province", IsFormMandatory(1, prov(0), form(24)), 0);
        row("provincial form, Quebec's empty table", IsFormMandatory(1, prov(11), form(24)), 0);
        row("ON479-A listed, not required", IsFormMandatory(3, prov(9), form(170)), 0);
        row("AB479 in no table is federal", getFormProv(form(46)), 0);
        row("AB479 not in the federal table", IsFormMandatory(3, prov(1), form(46)), 0);
        row("ON428 is Ontario's", getFormProv(form(24)), 9);
        row("CAIS default for no province", GetCAISFormTypeFromProv(prov(0)), 109);
        row("no CAIS in Nunavut", GetCAISFormTypeFromProv(prov(8)), 0);
        row("Ontario files T1163", GetCAISFormTypeFromProv(prov(9)), 15);
        row("Manitoba files T1273", GetCAISFormTypeFromProv(prov(3)), 109);
        row("T626 expired anywhere", IsFormExpired(form(30), prov(9)), 1);
        row("expired.pdf row not in the list", IsFormExpired(form(114), prov(9)), 0);
        row("T5 slip sharable", IsSlipSharable(ENUM_SLIP_T5), 1);
        row("schedule 3 sharable", IsFormSharable(form(4)), 1);
        row("SFD form sharable", IsFormSharable(form(160)), 1);
        row("SFD form multiple", IsMultipleForm(form(12)), 1);
        row("T1134 supplement multiple", IsMultipleForm(form(178)), 1);
        for (int bad : { -1, int(ENUM_FORM_COUNT), INT_MAX, INT_MIN }) {
            const QByteArray why = "form " + QByteArray::number(bad);
            row(why + " federal", getFormProv(form(bad)), 0);
            row(why + " not required", IsFormMandatory(0xff, prov(9), form(bad)), 0);
            row(why + " not expired", IsFormExpired(form(bad), prov(bad)), 0);
            row(why + " province, CAIS default", GetCAISFormTypeFromProv(prov(bad)), 109);
            row(why + " province, ON428", IsFormMandatory(1, prov(bad), form(24)), 0);
            row(why + " slip", IsSlipSharable(ENUMTYPE_SLIP(bad)), 0);
        }
    }

    void predicates()
    {
        QFETCH(int, got);
        QTEST(got, "expected");
    }
};

QTEST_GUILESS_MAIN(tst_Catalogue)
#include "tst_catalogue.moc"
