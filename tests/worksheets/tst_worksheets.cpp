#include "cdatefield.h"
#include "cstringfield.h"
#include "cwsageamtdata.h"
#include "cwsdepamtdata.h"
#include "cwsmedicalexpadjustmentdata.h"
#include "dependantinfo.h"
#include "libbedrock_config.h"
#include "mydatastream.h"
#include "streambytes.h"

#include <QTest>

#include <climits>
#include <cstring>
#include <functional>
#include <memory>

using Nums = QList<double>;
// Fills a worksheet from the row's inputs, calculates, and gives the lines it checks.
using Calc = QString (*)(const Nums& in);
using Worksheet = std::shared_ptr<CWSBaseData>;
Q_DECLARE_METATYPE(Calc)
Q_DECLARE_METATYPE(Worksheet)

namespace {

static_assert(LIBBEDROCK_TAX_YEAR == 2025, "the expected figures are those of 2025");
constexpr double D = 365; // days of the tax year

// Row 1: Ann, aged 17, income 3000; row 2: Bob, aged 18, income 4000.55; F185 adds 500.
DependantInfoStruct dependants;

// Calculates, then gives the values to ten digits, separated by blanks.
QString results(CWSBaseData& ws, std::initializer_list<std::reference_wrapper<CFloatField>> fields)
{
    ws.Calculate();
    QStringList out;
    for (const CFloatField& f : fields)
        out << QString::number(f.m_value, 'g', 10);
    return out.join(' ');
}

void attach(CWSDepBaseData& ws, double depIdx)
{
    ws.m_pDepInfo = &dependants;
    ws.DepIdx.m_value = int(depIdx);
}

// One field of each archived type; all but the bool carry the attribute their type
// acts on at rollover.
struct Sheet : CWSBaseData {
    Sheet() { m_fields = { &count, &flag, &text, &amount, &kept, &advanced, &cleared }; }
    CIntField count { 1, FIELD_ATTR_INCREMENT_ON_ROLLOVER };
    CBoolField flag { 0, 1, FIELD_ATTR_NONE, 0, 0x10100 };
    CStringField text { 0, "abc", 10, FIELD_ATTR_CLEAR_TEXT_ON_ROLLOVER, 0, 0x10000 };
    CFloatField amount { 5.5, 0 };
    CFloatField kept { 5.5, 0, false, 0x10000, FIELD_ATTR_KEEP_ON_ROLLOVER };
    CDateField advanced { QDate(2025, 3, 4), false, FIELD_ATTR_ADVANCE_DATE_ON_ROLLOVER, 0,
                          0x10000 };
    CDateField cleared { QDate(2025, 3, 4), false, FIELD_ATTR_CLEAR_DATE_ON_ROLLOVER, 0, 0x10000 };
};

} // namespace

class tst_Worksheets : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        dependants.AllocData(2);
        std::strcpy(dependants.m_pData[0].m_FirstName, "Ann");
        dependants.m_pData[0].m_BirthDate = QDate(2008, 6, 1);
        dependants.m_pData[0].m_NetIncome = 3000;
        std::strcpy(dependants.m_pData[1].m_FirstName, "Bob");
        dependants.m_pData[1].m_BirthDate = QDate(2007, 6, 1);
        dependants.m_pData[1].m_NetIncome = 4000.55;
        dependants.F185Adjustment.m_value = 500;
    }

    void readFromStringMap_data()
    {
        // The full name is WS_fld_5860, its old name old_5860.
        QTest::addColumn<QStringList>("keys");
        QTest::addColumn<double>("value");
        QTest::newRow("the full name first") << QStringList { "WS_fld_5860=1", "old_5860=2" } << 1.;
        QTest::newRow("an old name before the bare name")
            << QStringList { "old_5860=2", "fld_5860=3" } << 2.;
        QTest::newRow("no key: the value stays") << QStringList { "fld_claim=3" } << 7.;
    }
    void readFromStringMap()
    {
        QFETCH(QStringList, keys);
        DataWS58600 ws;
        ws.m_prefix = "WS";
        ws.addFieldOldName("WS_fld_5860", "old_5860");
        ws.fld_5860.m_value = 7;
        std::map<std::string, CString> values;
        for (const QString& key : keys)
            values[key.section('=', 0, 0).toStdString()] = key.section('=', 1);
        QCOMPARE(ws.readFromStringMap(values), 0);
        QTEST(ws.fld_5860.m_value, "value");
    }

    void archiveLayout_data()
    {
        // Fields archive in list order, each only from its first version: 4 bytes for an
        // integer or a bool, 8 for an amount, nothing around them.
        QTest::addColumn<Worksheet>("ws");
        QTest::addColumn<uint>("version");
        QTest::addColumn<int>("bytes");
        const auto dep = [] { return Worksheet(new CWSDepAmtData); };
        const auto care = [] { return Worksheet(new CWSCaregiverAmtData); };
        const auto med = [] { return Worksheet(new CWSMedicalExpAdjustmentData(0, 0, 0)); };
        const auto dividend = [] { return Worksheet(new CWSDividendTaxCreditData); };
        QTest::newRow("dependant: below its first") << dep() << 0x10082u << 0;
        QTest::newRow("dependant: index and base") << dep() << 0x10083u << 12;
        QTest::newRow("dependant: below 0x1009a") << dep() << 0x10099u << 12;
        QTest::newRow("dependant: income and claim") << dep() << 0x1009au << 32;
        QTest::newRow("caregiver: below the flag") << care() << 0x10191u << 48;
        QTest::newRow("caregiver: the overwrite flag") << care() << 0x10192u << 52;
        QTest::newRow("medical: below the lines") << med() << 0x100bfu << 44;
        QTest::newRow("medical: the expense lines") << med() << 0x100c0u << 60;
        QTest::newRow("dividend: below 0x10110") << dividend() << 0x1010fu << 0;
        QTest::newRow("dividend from 0x10110") << dividend() << 0x10110u << 64;
    }
    void archiveLayout()
    {
        QFETCH(Worksheet, ws);
        QFETCH(uint, version);
        QTEST(int(storeBytes([&](MyDataStream& s) { ws->Serialize(version, s); }).size()), "bytes");
    }

    void calculate_data()
    {
        QTest::addColumn<QString>("in");
        QTest::addColumn<Calc>("calc");
        QTest::addColumn<QString>("out");
        // In: keep. Out: count, amount, kept, advanced, cleared, text, flag.
        const Calc rollover = [](const Nums& in) {
            Sheet ws;
            ws.ChangeToNewYearData(in[0]);
            return QString("%1 %2 %3 %4 %5 %6 %7")
                .arg(ws.count.m_value)
                .arg(ws.amount.m_value)
                .arg(ws.kept.m_value)
                .arg(ws.advanced.m_value.toString("yyyyMMdd"),
                     ws.cleared.m_value.toString("yyyyMMdd"))
                .arg(QString(ws.text.m_text))
                .arg(ws.flag.m_value);
        };
        // Base 7000, threshold 40000, rate 0.25. In: eligible, income, days, claim days.
        const Calc age = [](const Nums& in) {
            CWSAgeAmtData ws;
            ws.SetAgeParameter(7000, 40000, 0.25, in.value(2, D), in.value(3, D), in[0], in[1]);
            return results(ws, { ws.AgeLine1, ws.AgeLine3, ws.AgeLine4, ws.AgeLine7 });
        };
        // Maximum 9000, threshold 3000. In: claim, under 18, line 2.
        const Calc self = [](const Nums& in) {
            CWSDisabilityAmtData ws;
            ws.SetF5844Parameter(9000, 3000, in[1] != 0);
            ws.fld_ws5844_claim.m_value = in[0];
            ws.fld_ws5844_2.m_value = in[2];
            ws.fld_ws5844_4.m_value = 77;
            return results(ws, { ws.fld_ws5844_2, ws.fld_ws5844_4, ws.fld_ws5844_5 });
        };
        // In: dependant, base, max.
        const Calc dep = [](const Nums& in) {
            CWSDepAmtData ws;
            attach(ws, in[0]);
            ws.SetParameter(in[1], in[2]);
            return results(ws, { ws.DepNetInc, ws.AmountClaim });
        };
        // Base 8000.004, 58160 amount 1000. In: dependant, max, 58160 dependant, list.
        const Calc infirm = [](const Nums& in) {
            CWSInfirmDepAmtData ws;
            attach(ws, in[0]);
            ws.m_pDepInfo = in[3] ? ws.m_pDepInfo : nullptr;
            ws.SetParameterAndF5816Info(8000.004, in[1], int(in[2]), 1000);
            ws.DepNetInc.m_value = 1999.996;
            return results(ws, { ws.DepNetInc, ws.fld_3, ws.AmountClaim });
        };
        // Base 8000, 58160 amount 1000 (X is 5000 for row 1). In: dependant, max, 58160
        // dependant, overwrite, typed claim.
        const Calc care = [](const Nums& in) {
            CWSCaregiverAmtData ws;
            attach(ws, in[0]);
            ws.SetParameter(8000, in[1], int(in[2]), 1000);
            ws.bOverwrite.m_value = in[3];
            ws.AmountClaim.m_value = in[4];
            return results(ws, { ws.AmountClaim });
        };
        // Base 9000, maximum 5000, care base 3000. In: dependant, care, tax income,
        // overwrite, typed claim.
        const Calc transfer = [](const Nums& in) {
            CWSDisabilityTransferAmtData ws;
            attach(ws, in[0]);
            ws.SetF5848Parameter(9000, 5000, 3000);
            ws.fld_Line3ChldCareExp.m_value = in[1];
            ws.DepTaxInc.m_value = in[2];
            ws.fld_overwrite.m_value = in[3];
            ws.fld_claim.m_value = in[4];
            ws.fld_Line6AmtUnder18.m_value = 77;
            return results(ws, { ws.fld_Line6AmtUnder18, ws.fld_Line8, ws.fld_7, ws.fld_claim });
        };
        // Rate 0.03, claim limit 5000. In: dependant, cap, expense.
        const Calc medical = [](const Nums& in) {
            CWSMedicalExpAdjustmentData ws(in[1], 0.03, 5000);
            attach(ws, in[0]);
            ws.fld_exp.m_value = in[2];
            return results(ws, { ws.fld_line2, ws.AmountClaim });
        };
        // Text marked for clearing goes, marked amounts and bools stay, keep or not.
        QTest::newRow("rollover: a new year") << "0" << rollover << "2 0 5.5 20260304   1";
        QTest::newRow("rollover: values kept")
            << "1" << rollover << "1 5.5 5.5 20250304 20250304  1";
        QTest::newRow("age: not eligible") << "0 90000 100" << age << "1917.808219 10958.90411 0 0";
        QTest::newRow("age: under threshold") << "1 39999" << age << "7000 40000 0 7000";
        QTest::newRow("age: at threshold") << "1 40000" << age << "7000 40000 0 7000";
        QTest::newRow("age: above threshold") << "1 40001" << age << "7000 40000 1 6999.75";
        QTest::newRow("age: reduced < base") << "1 67999" << age << "7000 40000 27999 0.25";
        QTest::newRow("age: reduced to base") << "1 68000" << age << "7000 40000 28000 0";
        QTest::newRow("self: under threshold") << "1 1 2999" << self << "2999 0 9000";
        QTest::newRow("self: at threshold") << "1 1 3000" << self << "3000 0 9000";
        QTest::newRow("self: above threshold") << "1 1 3001" << self << "3001 1 8999";
        QTest::newRow("self: above maximum") << "1 1 12001" << self << "12001 9001 0";
        QTest::newRow("self: an adult") << "1 0 5000" << self << "5000 77 0";
        QTest::newRow("dep: row 2, the last") << "2 10000.004 0" << dep << "4500.55 5499.45";
        QTest::newRow("dep: max 0.009 caps") << "1 10000.004 0.009" << dep << "3500 0.009";
        QTest::newRow("dep: max < 0.009: none") << "1 10000.004 0.0089" << dep << "3500 6500";
        QTest::newRow("infirm: past the list") << "3 7000 3 1" << infirm << "0 7000 0";
        QTest::newRow("infirm: row 1") << "1 7000 2 1" << infirm << "3000 5000 5000";
        QTest::newRow("infirm: 58160 off") << "1 7000 1 1" << infirm << "3000 5000 4000";
        QTest::newRow("infirm: 303, no list")
            << "303 9000 0 0" << infirm << "1999.996 6000.01 5000.01";
        QTest::newRow("care: not typed") << "1 7000 0 0 123" << care << "5000";
        QTest::newRow("care: 58160 off") << "1 7000 1 0 0" << care << "4000";
        QTest::newRow("care: typed < X") << "1 7000 0 1 4999.996" << care << "4999.996";
        QTest::newRow("care: typed > X") << "1 7000 0 1 5000.01" << care << "5000";
        QTest::newRow("transfer: care > base")
            << "1 4000 0 0 0" << transfer << "4000 13000 13000 13000";
        QTest::newRow("transfer: base + max") << "1 8000 0 0 0" << transfer << "0 9000 9000 9000";
        QTest::newRow("transfer: beyond") << "1 8001 0 0 0" << transfer << "0 9000 9000 9000";
        QTest::newRow("transfer: aged 18") << "2 4000 0 0 0" << transfer << "0 9000 9000 9000";
        QTest::newRow("transfer: income > 5") << "2 0 20000 0 0" << transfer << "0 9000 0 0";
        QTest::newRow("transfer: typed stands")
            << "2 0 2000 1 500" << transfer << "0 9000 7000 500";
        QTest::newRow("transfer: typed capped")
            << "2 0 2000 1 20000" << transfer << "0 9000 7000 7000";
        QTest::newRow("medical: row 2, rounded") << "2 2000 1000" << medical << "120.02 879.98";
        QTest::newRow("medical: cap stored") << "2 100.005 1000" << medical << "100.005 900";
        QTest::newRow("medical: < limit") << "1 2000 5089.99" << medical << "90 4999.99";
        QTest::newRow("medical: > limit") << "1 2000 5090.01" << medical << "90 5000";
    }
    void calculate()
    {
        QFETCH(QString, in);
        QFETCH(Calc, calc);
        Nums values;
        for (const QString& v : in.split(' '))
            values << v.toDouble();
        QTEST(calc(values), "out");
    }

    // An index that names no row: nothing past the list is read, and every output is 0.
    void noDependant_data()
    {
        QTest::addColumn<int>("depIdx");
        QTest::newRow("0: none chosen") << 0;
        QTest::newRow("-1: one below none") << -1;
        QTest::newRow("INT_MIN: no overflow") << INT_MIN;
        QTest::newRow("3: one past the list") << 3;
        QTest::newRow("303 outside the infirm worksheet") << 303;
    }
    void noDependant()
    {
        QFETCH(int, depIdx);
        CWSDepAmtData dep;
        CWSCaregiverAmtData care;
        CWSDisabilityTransferAmtData transfer;
        CWSMedicalExpAdjustmentData med(2000, 0.03, 5000);
        for (CWSDepBaseData* ws :
             std::initializer_list<CWSDepBaseData*> { &dep, &care, &transfer, &med }) {
            attach(*ws, depIdx);
            for (CField* f : ws->m_fields)
                if (f->getFieldType() == FIELD_TYPE_FLOAT)
                    static_cast<CFloatField*>(f)->m_value = 99;
            ws->Calculate();
        }
        for (CFloatField* out :
             { &dep.DepNetInc, &dep.AmountClaim, &care.DepNetInc, &care.fld_4, &care.AmountClaim,
               &transfer.fld_4, &transfer.DepTaxInc, &transfer.fld_claim, &med.DepNetInc,
               &med.fld_line2, &med.AmountClaim })
            QCOMPARE(out->m_value, 0.0);
    }
};

QTEST_GUILESS_MAIN(tst_Worksheets)
#include "tst_worksheets.moc"
