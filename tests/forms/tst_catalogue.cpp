#include "catalogue.h"
#include "ctaxdata_form.h"

#include <QTest>

#include <climits>
#include <cstring>
#include <functional>

enum Query { Mandatory, FormProv, Cais, Expired, SlipSharable, Sfd, Sharable, Multiple, Imported };
Q_DECLARE_METATYPE(Query)

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
            QVERIFY2(ownName || !std::strncmp(f.dataClass, "TaxData_", 8), f.dataClass);
        }
        for (int i = 0; i < ENUM_SLIP_COUNT; ++i) {
            QCOMPARE(int(Global_Slips_Info[i].type), i);
            QVERIFY(i == 0 || !std::strncmp(Global_Slips_Info[i].dataClass, "SlipData_", 9));
        }
    }

    void queries_data()
    {
        QTest::addColumn<Query>("query");
        QTest::addColumn<int>("mode");
        QTest::addColumn<int>("province");
        QTest::addColumn<int>("number"); // form or slip
        QTest::addColumn<int>("result");
        // A federal form's row and mode mask decide; a provincial form's, the return's province.
        QTest::newRow("summary, near the end") << Mandatory << 1 << 0 << 93 << 1;
        QTest::newRow("T183 masked out") << Mandatory << 2 << 9 << 96 << 0;
        QTest::newRow("listed, not required") << Mandatory << 3 << 9 << 3 << 0;
        QTest::newRow("past the catalogue") << Mandatory << 0xff << 9 << int(ENUM_FORM_COUNT) << 0;
        QTest::newRow("AB428, first province") << Mandatory << 1 << 1 << 45 << 1;
        QTest::newRow("ON428 for Alberta") << Mandatory << 1 << 1 << 24 << 0;
        QTest::newRow("ON428, Quebec's empty table") << Mandatory << 1 << 11 << 24 << 0;
        QTest::newRow("first of the first table") << FormProv << 0 << 0 << 45 << 1;
        QTest::newRow("last of the last table") << FormProv << 0 << 0 << 135 << 13;
        QTest::newRow("Nunavut: none") << Cais << 0 << 8 << 0 << 0;
        QTest::newRow("PEI, first of T1163") << Cais << 0 << 10 << 0 << 15;
        QTest::newRow("last expired, any province") << Expired << 0 << INT_MIN << 117 << 1;
        QTest::newRow("on expired.pdf, not expired") << Expired << 0 << 9 << 114 << 0;
        QTest::newRow("T5") << SlipSharable << 0 << 0 << 8 << 1;
        QTest::newRow("T3") << SlipSharable << 0 << 0 << 9 << 1;
        QTest::newRow("T5013") << SlipSharable << 0 << 0 << 13 << 1;
        QTest::newRow("last SFD") << Sfd << 0 << 0 << 160 << 1;
        QTest::newRow("beside the last SFD") << Sfd << 0 << 0 << 161 << 0;
        QTest::newRow("schedule 3") << Sharable << 0 << 0 << 4 << 1;
        QTest::newRow("an SFD form is multiple") << Multiple << 0 << 0 << 12 << 1;
        QTest::newRow("T2209") << Multiple << 0 << 0 << 35 << 1;
        QTest::newRow("T1M") << Multiple << 0 << 0 << 102 << 1;
        QTest::newRow("T1134 supplement") << Multiple << 0 << 0 << 178 << 1;
        QTest::newRow("imported: required") << Imported << 1 << 9 << 96 << 1;
        QTest::newRow("always imported, in no mode") << Imported << 0 << 9 << 3 << 1;
        QTest::newRow("imported: past the catalogue")
            << Imported << 3 << 9 << int(ENUM_FORM_COUNT) << 0;
    }
    void queries()
    {
        QFETCH(Query, query);
        QFETCH(int, mode); // unsigned char below
        QFETCH(int, province);
        QFETCH(int, number);
        const auto prov = ENUMTYPE_PROVINCE(province);
        const auto form = ENUMTYPE_FORM(number);
        // Only the row's own function runs, so no other can fail its row.
        const std::function<int()> calls[] = {
            [&] { return IsFormMandatory(mode, prov, form); },
            [&] { return ::getFormProv(form); },
            [&] { return GetCAISFormTypeFromProv(prov); },
            [&] { return IsFormExpired(form, prov); },
            [&] { return IsSlipSharable(ENUMTYPE_SLIP(number)); },
            [&] { return IsSFDForm(form); },
            [&] { return IsFormSharable(form); },
            [&] { return IsMultipleForm(form); },
            [&] { return CTaxData_Form(form).ShouldBeImported(mode, prov); },
        };
        QTEST(calls[query](), "result");
    }
};

QTEST_GUILESS_MAIN(tst_Catalogue)
#include "tst_catalogue.moc"
