#include "calendar.h"
#include "cwsageamtdata.h"
#include "cwsdepamtdata.h"
#include "cwsmedicalexpadjustmentdata.h"
#include "dependantinfo.h"
#include "libbedrock_config.h"

#include <QTest>

#include <array>
#include <climits>
#include <cstring>

// QFETCH as an expression.
#define FETCH(Type, name) (*static_cast<Type*>(QTest::qData(#name, ::qMetaTypeId<Type>())))

template<typename... T, typename... N> static void columns(N... n)
{
    (QTest::addColumn<T>(n), ...);
}

static const double D = GetDaysInYear(LIBBEDROCK_TAX_YEAR);

class tst_Worksheets : public QObject
{
    Q_OBJECT

    // Row 1: aged 10, income 3000; row 2: aged 18, income 12000.55; F185 adds 500.
    DependantInfoStruct m_list;

    void attach(CWSDepBaseData& ws)
    {
        ws.m_pDepInfo = &m_list, ws.DepIdx.m_value = FETCH(int, depIdx);
    }

private Q_SLOTS:
    void initTestCase()
    {
        m_list.AllocData(2);
        for (int i : { 0, 1 }) {
            std::strcpy(m_list.m_pData[i].m_FirstName, i ? "Bob" : "Ann");
            m_list.m_pData[i].m_BirthDate = QDate(LIBBEDROCK_TAX_YEAR - (i ? 18 : 10), 6, 1);
            m_list.m_pData[i].m_NetIncome = i ? 12000.55 : 3000;
        }
        m_list.F185Adjustment.m_value = 500;
    }

    void ageAmount_data()
    {
        columns<bool, double, double, double, double, double, double>(
            "eligible", "days", "claimDays", "income", "line1", "line4", "line7");
        // Base 7000, threshold 40000, rate 0.15.
        QTest::newRow("not eligible: lines 1-3 still prorated, stored unrounded")
            << false << 100.0 << D << 90000.0 << 7000 / D * 100 << 0.0 << 0.0;
        QTest::newRow("income under threshold: line 4 clamped")
            << true << D << D << 30000.0 << 7000.0 << 0.0 << 7000.0;
        QTest::newRow("line 4 and 6 set, so rounded")
            << true << D << D << 40000.333 << 7000.0 << 0.33 << 6999.95;
        QTest::newRow("reduction beyond base gives 0")
            << true << D << D << 90000.0 << 7000.0 << 50000.0 << 0.0;
        QTest::newRow("one claim day: line 7 set, so rounded")
            << true << D << 1.0 << 30000.0 << 7000.0 << 0.0 << RoundFloatAtDecision(7000 / D, 2);
    }
    void ageAmount()
    {
        CWSAgeAmtData ws;
        ws.SetAgeParameter(7000, 40000, 0.15, FETCH(double, days), FETCH(double, claimDays),
                           FETCH(bool, eligible), FETCH(double, income));
        QCOMPARE(ws.Calculate(), 0);
        QCOMPARE(ws.AgeLine1.m_value, FETCH(double, line1));
        QCOMPARE(ws.AgeLine4.m_value, FETCH(double, line4));
        QCOMPARE(ws.AgeLine7.m_value, FETCH(double, line7));
    }

    void selfAndDividend()
    {
        // Disability: maximum 9000, threshold 3000; line 4 held 77 before each run.
        CWSDisabilityAmtData ws;
        for (auto [claim, under18, line2, line4, line5] :
             { std::array { 1.0, 1.0, -50.0, 0.0, 9000.0 }, // a negative line 2 counts as 0
               std::array { 1.0, 1.0, 5000.004, 2000.0, 7000.0 }, // set rounds line 4
               std::array { 0.0, 1.0, 5000.0, 77.0, 0.0 }, // no claim: line 4 untouched
               std::array { 1.0, 0.0, 5000.0, 77.0, 0.0 } }) { // adult
            ws.SetF5844Parameter(9000, 3000, under18 != 0);
            ws.fld_ws5844_claim.m_value = int(claim);
            ws.fld_ws5844_2.m_value = line2;
            ws.fld_ws5844_4.m_value = 77;
            QCOMPARE(ws.Calculate(), 0);
            QCOMPARE(ws.fld_ws5844_4.m_value, line4);
            QCOMPARE(ws.fld_ws5844_5.m_value, line5);
        }
        CWSDividendTaxCreditData div; // rates 0.15 and 0.1; products set, so rounded
        div.SetParameter(0.15, 0.1);
        for (auto [l120, l180, f5, f6] : { std::array { 1000.0, 400.1, 59.99, 120.01 },
                                           std::array { 100.0, 400.0, 0.0, 60.0 } }) {
            div.fld_Line120.m_value = l120;
            div.fld_Line180.m_value = l180;
            QCOMPARE(div.Calculate(), 0);
            QCOMPARE(div.fld_5.m_value, f5); // line 180 above 120: 0
            QCOMPARE(div.fld_6.m_value, f6);
        }
    }

    // An index that names no row: nothing past the list is read, and every output is 0.
    void noDependant_data()
    {
        QTest::addColumn<int>("depIdx");
        QTest::newRow("0: none chosen") << 0;
        QTest::newRow("INT_MIN: no overflow") << INT_MIN;
        QTest::newRow("one past the list") << 3;
        QTest::newRow("303 outside the infirm worksheet") << 303;
    }
    void noDependant()
    {
        CWSDepAmtData dep;
        CWSCaregiverAmtData care;
        CWSDisabilityTransferAmtData transfer;
        CWSMedicalExpAdjustmentData med(2000, 0.03, 5000);
        for (CWSDepBaseData* ws :
             std::initializer_list<CWSDepBaseData*> { &dep, &care, &transfer, &med }) {
            attach(*ws);
            for (CField* f : ws->m_fields)
                if (f->getFieldType() == FIELD_TYPE_FLOAT)
                    static_cast<CFloatField*>(f)->m_value = 99;
            QCOMPARE(ws->Calculate(), 0);
        }
        QCOMPARE(dep.DepNetInc.m_value + dep.AmountClaim.m_value, 0.0);
        QCOMPARE(care.DepNetInc.m_value + care.AmountClaim.m_value + care.fld_4.m_value, 0.0);
        QCOMPARE(transfer.fld_4.m_value + transfer.DepTaxInc.m_value + transfer.fld_claim.m_value,
                 0.0);
        QCOMPARE(med.DepNetInc.m_value + med.fld_line2.m_value + med.AmountClaim.m_value, 0.0);
    }

    void depAmount_data()
    {
        columns<int, double, double, double>("depIdx", "max", "netInc", "claim");
        // Base 10000.004: stored as given; the claim is set, so rounded.
        QTest::newRow("F185 adjustment added, no max") << 1 << 0.0 << 3500.0 << 6500.0;
        QTest::newRow("max caps, stored") << 1 << 5000.005 << 3500.0 << 5000.005;
        QTest::newRow("max below 0.009 is no max") << 1 << 0.005 << 3500.0 << 6500.0;
        QTest::newRow("income above base clamps") << 2 << 0.0 << 12500.55 << 0.0;
    }
    void depAmount()
    {
        CWSDepAmtData ws;
        attach(ws);
        ws.SetParameter(10000.004, FETCH(double, max));
        QCOMPARE(ws.Calculate(), 0);
        QCOMPARE(ws.DepNetInc.m_value, FETCH(double, netInc));
        QCOMPARE(ws.AmountClaim.m_value, FETCH(double, claim));
    }

    void infirm_data()
    {
        columns<int, bool, double, int, double, double, double>(
            "depIdx", "withList", "max", "f5816Idx", "netInc", "fld3", "claim");
        // Base 8000.004, 58160 amount 1000; a typed income of 1999.996 is there before.
        QTest::newRow("none chosen: fld_3 still worked out")
            << 0 << true << 7000.0 << 0 << 0.0 << 7000.0 << 0.0;
        QTest::newRow("own income, no F185; set rounds")
            << 1 << true << 7000.0 << 2 << 3000.0 << 5000.0 << 5000.0;
        QTest::newRow("max 0 is a max") << 1 << true << 0.0 << 0 << 3000.0 << 0.0 << 0.0;
        QTest::newRow("58160 for the same dependant")
            << 1 << true << 7000.0 << 1 << 3000.0 << 5000.0 << 4000.0;
        QTest::newRow("past the list is none") << 3 << true << 7000.0 << 3 << 0.0 << 7000.0 << 0.0;
        QTest::newRow("303 keeps typed income, 58160 always off")
            << 303 << true << 9000.0 << 2 << 1999.996 << 6000.01 << 5000.01;
        QTest::newRow("303 never reads the list")
            << 303 << false << 9000.0 << 0 << 1999.996 << 6000.01 << 5000.01;
    }
    void infirm()
    {
        CWSInfirmDepAmtData ws;
        attach(ws);
        ws.m_pDepInfo = FETCH(bool, withList) ? &m_list : nullptr;
        ws.SetParameterAndF5816Info(8000.004, FETCH(double, max), FETCH(int, f5816Idx), 1000);
        ws.DepNetInc.m_value = 1999.996;
        QCOMPARE(ws.Calculate(), 0);
        QCOMPARE(ws.DepNetInc.m_value, FETCH(double, netInc));
        QCOMPARE(ws.fld_3.m_value, FETCH(double, fld3));
        QCOMPARE(ws.AmountClaim.m_value, FETCH(double, claim));
    }

    void caregiver_data()
    {
        columns<int, bool, double, int, double>("depIdx", "overwrite", "typed", "f5816Idx",
                                                "claim");
        // Base 8000, max 7000, 58160 amount 1000: X is 5000, or 4000 after 58160.
        QTest::newRow("computed amount replaces the typed one")
            << 1 << false << 123.0 << 0 << 5000.0;
        QTest::newRow("overwrite: typed below X stays, unrounded")
            << 1 << true << 4000.004 << 0 << 4000.004;
        QTest::newRow("overwrite: typed above X drops to X") << 1 << true << 6000.0 << 0 << 5000.0;
        QTest::newRow("overwrite: negative becomes 0") << 1 << true << -10.0 << 0 << 0.0;
        QTest::newRow("58160 for the same dependant") << 1 << false << 0.0 << 1 << 4000.0;
    }
    void caregiver()
    {
        CWSCaregiverAmtData ws;
        attach(ws);
        ws.SetParameter(8000, 7000, FETCH(int, f5816Idx), 1000);
        ws.bOverwrite.m_value = FETCH(bool, overwrite);
        ws.AmountClaim.m_value = FETCH(double, typed);
        QCOMPARE(ws.Calculate(), 0);
        QCOMPARE(ws.AmountClaim.m_value, FETCH(double, claim));
    }

    void disabilityTransfer_data()
    {
        columns<int, double, double, bool, double, double, double, double>(
            "depIdx", "childCare", "depTaxInc", "overwrite", "typed", "line6", "line8", "claim");
        // Base 9000, line 2 max 5000, line 4 base 3000; fld_4 typed as -50, so 0.
        QTest::newRow("under 18: care expense reduces line 6")
            << 1 << 4000.0 << 0.0 << false << 0.0 << 4000.0 << 13000.0 << 13000.0;
        QTest::newRow("under 18: line 6 clamps; negative tax income is 0")
            << 1 << 10000.0 << -100.0 << false << 0.0 << 0.0 << 9000.0 << 9000.0;
        QTest::newRow("aged 18: no under-18 amount")
            << 2 << 4000.0 << 2000.0 << false << 0.0 << 0.0 << 9000.0 << 7000.0;
        QTest::newRow("overwrite: a claim of 0 stays 0")
            << 1 << 4000.0 << 0.0 << true << 0.0 << 4000.0 << 13000.0 << 0.0;
        QTest::newRow("overwrite: least of the three")
            << 2 << 0.0 << 8000.0 << true << 2000.0 << 0.0 << 9000.0 << 1000.0;
    }
    void disabilityTransfer()
    {
        CWSDisabilityTransferAmtData ws;
        attach(ws);
        ws.SetF5848Parameter(9000, 5000, 3000);
        ws.fld_Line3ChldCareExp.m_value = FETCH(double, childCare);
        ws.DepTaxInc.m_value = FETCH(double, depTaxInc);
        ws.fld_overwrite.m_value = FETCH(bool, overwrite);
        ws.fld_claim.m_value = FETCH(double, typed);
        ws.fld_4.m_value = -50;
        ws.fld_Line6AmtUnder18.m_value = 77; // cleared first, whatever the age
        QCOMPARE(ws.Calculate(), 0);
        QCOMPARE(ws.fld_Line6AmtUnder18.m_value + ws.fld_4.m_value, FETCH(double, line6));
        QCOMPARE(ws.fld_Line8.m_value - ws.fld_2.m_value, 9000.0);
        QCOMPARE(ws.fld_Line8.m_value, FETCH(double, line8));
        QCOMPARE(ws.fld_claim.m_value, FETCH(double, claim));
    }

    void medical_data()
    {
        columns<int, double, double, double, double>("depIdx", "cap", "expense", "line2", "claim");
        // Rate 0.03, claim limit 5000.
        QTest::newRow("own income, no F185") << 1 << 2000.0 << 1000.0 << 90.0 << 910.0;
        QTest::newRow("expense below line 2 gives 0") << 1 << 2000.0 << 50.0 << 90.0 << 0.0;
        QTest::newRow("claim limit") << 1 << 2000.0 << 9000.0 << 90.0 << 5000.0;
        QTest::newRow("line 2 set, so rounded") << 2 << 2000.0 << 1000.0 << 360.02 << 639.98;
        QTest::newRow("line 2 capped by a store, claim set")
            << 2 << 300.005 << 1000.0 << 300.005 << 700.0;
    }
    void medical()
    {
        CWSMedicalExpAdjustmentData ws(FETCH(double, cap), 0.03, 5000);
        attach(ws);
        ws.fld_exp.m_value = FETCH(double, expense);
        QCOMPARE(ws.Calculate(), 0);
        QCOMPARE(ws.fld_line2.m_value, FETCH(double, line2));
        QCOMPARE(ws.AmountClaim.m_value, FETCH(double, claim));
    }

    void adoptionAndTuition()
    {
        DataWSAdoptionExpense adoption;
        for (CField* f : adoption.m_fields)
            static_cast<CFloatField*>(f)->m_value = 100;
        QCOMPARE(adoption.CalcResult(60), 360.0); // the limit applies to each child alone
        adoption.fld_Adopt_ExpAmt_2.m_value = -5;
        adoption.fld_Adopt_ExpAmt_3.m_value = 40.004;
        QCOMPARE(adoption.CalcResult(60), 4 * 60 - 5 + 40.004);
        QCOMPARE(adoption.Calculate(), 0);
        QCOMPARE(adoption.fld_Adopt_ExpAmt_2.m_value + adoption.fld_Adopt_ExpAmt_3.m_value, 40.004);

        DataWS58600 tuition;
        tuition.fld_5860.m_value = 10.01;
        QCOMPARE(tuition.Calculate(0.5), 0);
        QCOMPARE(tuition.fld_claim.m_value, 5.005); // stored, not rounded
        QVERIFY(tuition.m_factor == 0.5 && tuition.fld_5860.m_id == 5860);
    }

    // Names and first versions are what old archives are read by.
    void fieldVersions()
    {
        QCOMPARE(CWSAgeAmtData().m_fields.size(), size_t(0));
        CWSDepAmtData dep, depAt(0x10200);
        QVERIFY(dep.m_fields.front() == &dep.DepIdx && dep.m_fields.size() == 5);
        QCOMPARE(dep.BaseAmount.m_version + dep.DepNetInc.m_version, 0x10083u + 0x1009au);
        QCOMPARE(depAt.DepIdx.m_version + depAt.AmountClaim.m_version, 0x10083u + 0x10200u);
        QCOMPARE(CWSCaregiverAmtData().bOverwrite.m_version, 0x10192u);
        QCOMPARE(CWSMedicalExpAdjustmentData(0, 0, 0).fld_exp.m_version, 0x100c0u);
        QCOMPARE(CWSDividendTaxCreditData().m_fields.back()->m_name, std::string("fld_6"));
    }
};

QTEST_GUILESS_MAIN(tst_Worksheets)
#include "tst_worksheets.moc"
