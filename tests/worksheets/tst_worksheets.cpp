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
#include <cstdio>
#include <cstring>
#include <functional>
#include <memory>

using Worksheet = std::shared_ptr<CWSBaseData>;
Q_DECLARE_METATYPE(Worksheet)

namespace {

static_assert(LIBBEDROCK_TAX_YEAR == 2025, "the expected figures are those of 2025");
constexpr double D = 365; // days of the tax year

// One field of each archived type; all but the bool carry the attribute their type
// acts on at rollover.
struct Sheet : CWSBaseData {
    Sheet()
    {
        m_prefix = "WS";
        const std::pair<CField*, const char*> fields[]
            = { { &count, "count" },    { &flag, "flag" }, { &text, "text" },
                { &amount, "amount" },  { &kept, "kept" }, { &advanced, "advanced" },
                { &cleared, "cleared" } };
        for (const auto& [field, name] : fields) {
            field->m_name = name;
            m_fields.push_back(field);
        }
    }
    CIntField count { 1, FIELD_ATTR_INCREMENT_ON_ROLLOVER };
    CBoolField flag { 0, 1, FIELD_ATTR_NONE, 0, 0x10100 };
    CStringField text { 0, "abc", 10, FIELD_ATTR_CLEAR_TEXT_ON_ROLLOVER, 0, 0x10000 };
    CFloatField amount { 5.5, 0 };
    CFloatField kept { 5.5, 0, false, 0x10000, FIELD_ATTR_KEEP_ON_ROLLOVER };
    CDateField advanced { QDate(2025, 3, 4), false, FIELD_ATTR_ADVANCE_DATE_ON_ROLLOVER, 0,
                          0x10000 };
    CDateField cleared { QDate(2025, 3, 4), false, FIELD_ATTR_CLEAR_DATE_ON_ROLLOVER, 0, 0x10000 };
};

QByteArray fileText(const std::function<void(FILE*)>& write)
{
    FILE* file = std::tmpfile();
    if (!file)
        return "no temporary file";
    write(file);
    std::rewind(file);
    QByteArray text;
    char buffer[256];
    while (std::fgets(buffer, sizeof buffer, file))
        text += buffer;
    std::fclose(file);
    return text;
}

} // namespace

class tst_Worksheets : public QObject
{
    Q_OBJECT

    // Row 1: Ann, aged 17, income 3000; row 2: Bob, aged 18, income 4000.55; F185 adds 500.
    DependantInfoStruct m_list;

    void attach(CWSDepBaseData& ws, int depIdx)
    {
        ws.m_pDepInfo = &m_list;
        ws.DepIdx.m_value = depIdx;
    }

private slots:
    void initTestCase();
    void textRecord_data();
    void textRecord();
    void readFromStringMap_data();
    void readFromStringMap();
    void rollover_data();
    void rollover();
    void copyFromCommonHead();
    void javaOutput();
    void archiveLayout_data();
    void archiveLayout();
    void ageWorksheetIsNeverSaved();
    void ageAmount_data();
    void ageAmount();
    void disabilitySelf_data();
    void disabilitySelf();
    void dividend_data();
    void dividend();
    void noDependant_data();
    void noDependant();
    void depAmount_data();
    void depAmount();
    void infirm_data();
    void infirm();
    void caregiver_data();
    void caregiver();
    void disabilityTransfer_data();
    void disabilityTransfer();
    void medical_data();
    void medical();
    void adoptionTotal_data();
    void adoptionTotal();
    void adoptionCalculateClampsOnly();
    void tuition();
};

void tst_Worksheets::initTestCase()
{
    m_list.AllocData(2);
    std::strcpy(m_list.m_pData[0].m_FirstName, "Ann");
    m_list.m_pData[0].m_BirthDate = QDate(2008, 6, 1);
    m_list.m_pData[0].m_NetIncome = 3000;
    std::strcpy(m_list.m_pData[1].m_FirstName, "Bob");
    m_list.m_pData[1].m_BirthDate = QDate(2007, 6, 1);
    m_list.m_pData[1].m_NetIncome = 4000.55;
    m_list.F185Adjustment.m_value = 500;
}

void tst_Worksheets::textRecord_data()
{
    QTest::addColumn<QString>("prefix");
    QTest::addColumn<QString>("record");
    QTest::newRow("each key is the prefix, an underscore and the name")
        << "WS"
        << "old<f n=\"WS_fld_5860\">10.01</f><f n=\"WS_fld_claim\">0.00</f>";
    QTest::newRow("an empty prefix still leads with the underscore")
        << ""
        << "old<f n=\"_fld_5860\">10.01</f><f n=\"_fld_claim\">0.00</f>";
}

void tst_Worksheets::textRecord()
{
    QFETCH(QString, prefix);
    DataWS58600 ws;
    ws.m_prefix = prefix.toStdString();
    ws.fld_5860.m_value = 10.01;
    CString out("old"); // appended to, never cleared
    QCOMPARE(ws.writeToString(out), 0);
    QTEST(QString(out), "record");
}

void tst_Worksheets::readFromStringMap_data()
{
    // The full name is WS_fld_5860; its old names are old_5860, then older_5860.
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<double>("value");
    QTest::newRow("the full name first")
        << QStringList { "WS_fld_5860=1", "old_5860=2", "fld_5860=3" } << 1.0;
    QTest::newRow("an old name before the bare name")
        << QStringList { "old_5860=2", "fld_5860=3" } << 2.0;
    QTest::newRow("old names in the order they were added")
        << QStringList { "older_5860=4", "old_5860=2" } << 2.0;
    QTest::newRow("the second old name") << QStringList { "older_5860=4", "fld_5860=3" } << 4.0;
    QTest::newRow("the bare name last") << QStringList { "fld_5860=3" } << 3.0;
    QTest::newRow("no key: the value stays") << QStringList { "fld_claim=3" } << 7.0;
}

void tst_Worksheets::readFromStringMap()
{
    QFETCH(QStringList, keys);
    DataWS58600 ws;
    ws.m_prefix = "WS";
    ws.addFieldOldName("WS_fld_5860", "old_5860");
    ws.addFieldOldName("WS_fld_5860", "older_5860");
    ws.fld_5860.m_value = 7;
    std::map<std::string, CString> values;
    for (const QString& key : keys)
        values[key.section('=', 0, 0).toStdString()] = key.section('=', 1);
    QCOMPARE(ws.readFromStringMap(values), 0);
    QTEST(ws.fld_5860.m_value, "value");
}

void tst_Worksheets::rollover_data()
{
    QTest::addColumn<bool>("keep");
    QTest::addColumn<int>("count");
    QTest::addColumn<double>("amount");
    QTest::addColumn<QDate>("advanced");
    QTest::addColumn<QDate>("cleared");
    QTest::newRow("a new year") << false << 2 << 0.0 << QDate(2026, 3, 4) << QDate();
    QTest::newRow("values kept") << true << 1 << 5.5 << QDate(2025, 3, 4) << QDate(2025, 3, 4);
}

void tst_Worksheets::rollover()
{
    QFETCH(bool, keep);
    Sheet ws;
    ws.ChangeToNewYearData(keep);
    QTEST(ws.count.m_value, "count");
    QTEST(ws.amount.m_value, "amount");
    QTEST(ws.advanced.m_value, "advanced");
    QTEST(ws.cleared.m_value, "cleared");
    // Whatever keep says: text marked for clearing goes, marked amounts and bools stay.
    QVERIFY(ws.text.m_text.isEmpty());
    QCOMPARE(ws.kept.m_value, 5.5);
    QCOMPARE(ws.flag.m_value, 1);
}

void tst_Worksheets::copyFromCommonHead()
{
    DataWS58600 shorter;
    DataWSAdoptionExpense longer;
    longer.m_prefix = "ADOPT";
    for (int i = 0; i < 6; ++i)
        static_cast<CFloatField*>(longer.m_fields[i])->m_value = i + 1;
    shorter.fld_5860.m_value = 10;
    shorter.fld_claim.m_value = 20;
    longer.copyFrom(shorter);
    QCOMPARE(longer.fld_Adopt_ExpAmt_1.m_value, 10.0);
    QCOMPARE(longer.fld_Adopt_ExpAmt_2.m_value, 20.0);
    QCOMPARE(longer.fld_Adopt_ExpAmt_3.m_value, 3.0); // past the shorter list: kept
    QCOMPARE(longer.m_prefix, std::string("ADOPT"));
    QCOMPARE(longer.fld_Adopt_ExpAmt_1.m_name, std::string("fld_Adopt_ExpAmt_1"));
    longer.fld_Adopt_ExpAmt_1.m_value = 1.005;
    shorter.copyFrom(longer);
    QCOMPARE(shorter.fld_5860.m_value, 1.005); // copied, not rounded
    QCOMPARE(shorter.fld_claim.m_value, 20.0);
}

void tst_Worksheets::javaOutput()
{
    Sheet ws;
    QCOMPARE(fileText([&](FILE* f) { ws.WriteJavaFileDeclaration(f); }),
             QByteArray("IntField WS_count = new IntField(\"WS_count\", 65536, 268435455);\n"
                        "IntField WS_flag = new IntField(\"WS_flag\", 65792, 268435455);\n"
                        "StringField WS_text = new StringField(\"WS_text\", 10, 65536, "
                        "268435455);\n"
                        "FloatField WS_amount = new FloatField(\"WS_amount\", 65536, 268435455);\n"
                        "FloatField WS_kept = new FloatField(\"WS_kept\", 65536, 268435455);\n"
                        "DateField WS_advanced = new DateField(\"WS_advanced\", 65536, "
                        "268435455);\n"
                        "DateField WS_cleared = new DateField(\"WS_cleared\", 65536, "
                        "268435455);\n"));
    QCOMPARE(fileText([&](FILE* f) { ws.WriteJavaFileContruction(f); }),
             QByteArray("m_data.add(WS_count);\nm_data.add(WS_flag);\nm_data.add(WS_text);\n"
                        "m_data.add(WS_amount);\nm_data.add(WS_kept);\n"
                        "m_data.add(WS_advanced);\nm_data.add(WS_cleared);\n"));
}

void tst_Worksheets::archiveLayout_data()
{
    // Fields archive in list order, each only from its first version: 4 bytes for an
    // integer or a bool, 8 for an amount, nothing around them.
    QTest::addColumn<Worksheet>("ws");
    QTest::addColumn<uint>("version");
    QTest::addColumn<int>("bytes");
    const auto dep = [] { return Worksheet(new CWSDepAmtData); };
    QTest::newRow("dependant amount: one below its first version") << dep() << 0x10082u << 0;
    QTest::newRow("dependant amount: index and base from 0x10083") << dep() << 0x10083u << 12;
    QTest::newRow("dependant amount: one below 0x1009a") << dep() << 0x10099u << 12;
    QTest::newRow("dependant amount: income and claim from 0x1009a") << dep() << 0x1009au << 32;
    QTest::newRow("a version given: the index keeps its own")
        << Worksheet(new CWSDepAmtData(0x10200)) << 0x101ffu << 4;
    QTest::newRow("a version given: every other field from it")
        << Worksheet(new CWSDepAmtData(0x10200)) << 0x10200u << 32;
    QTest::newRow("caregiver: one below the overwrite flag")
        << Worksheet(new CWSCaregiverAmtData) << 0x10191u << 48;
    QTest::newRow("caregiver: the overwrite flag from 0x10192")
        << Worksheet(new CWSCaregiverAmtData) << 0x10192u << 52;
    QTest::newRow("medical: one below the expense lines")
        << Worksheet(new CWSMedicalExpAdjustmentData(0, 0, 0)) << 0x100bfu << 44;
    QTest::newRow("medical: the expense lines from 0x100c0")
        << Worksheet(new CWSMedicalExpAdjustmentData(0, 0, 0)) << 0x100c0u << 60;
    QTest::newRow("disability for self from 0x10083")
        << Worksheet(new CWSDisabilityAmtData) << 0x10083u << 44;
    QTest::newRow("dividend: one below 0x10110")
        << Worksheet(new CWSDividendTaxCreditData) << 0x1010fu << 0;
    QTest::newRow("dividend from 0x10110")
        << Worksheet(new CWSDividendTaxCreditData) << 0x10110u << 64;
}

void tst_Worksheets::archiveLayout()
{
    QFETCH(Worksheet, ws);
    QFETCH(uint, version);
    QTEST(int(storeBytes([&](MyDataStream& stream) { ws->Serialize(version, stream); }).size()),
          "bytes");
}

void tst_Worksheets::ageWorksheetIsNeverSaved()
{
    CWSAgeAmtData ws;
    ws.SetAgeParameter(7000, 40000, 0.25, D, D, true, 50000);
    ws.Calculate();
    CString out("old");
    QCOMPARE(ws.writeToString(out), 0);
    QCOMPARE(QString(out), QStringLiteral("old"));
    QVERIFY(storeBytes([&](MyDataStream& stream) { ws.Serialize(0xfffffff, stream); }).isEmpty());
}

void tst_Worksheets::ageAmount_data()
{
    // Base 7000, threshold 40000, reduction rate 0.25.
    QTest::addColumn<bool>("eligible");
    QTest::addColumn<double>("days");
    QTest::addColumn<double>("claimDays");
    QTest::addColumn<double>("income");
    QTest::addColumn<double>("line1");
    QTest::addColumn<double>("line3");
    QTest::addColumn<double>("line4");
    QTest::addColumn<double>("line7");
    QTest::newRow("not eligible: lines 1 and 3 prorated and stored, line 7 is 0")
        << false << 100.0 << D << 90000.0 << 7000 / D * 100 << 40000 / D * 100 << 0.0 << 0.0;
    QTest::newRow("income one below the threshold: no reduction")
        << true << D << D << 39999.0 << 7000.0 << 40000.0 << 0.0 << 7000.0;
    QTest::newRow("income at the threshold: no reduction")
        << true << D << D << 40000.0 << 7000.0 << 40000.0 << 0.0 << 7000.0;
    QTest::newRow("income one above: the reduction starts")
        << true << D << D << 40001.0 << 7000.0 << 40000.0 << 1.0 << 6999.75;
    QTest::newRow("line 4 is set, so rounded")
        << true << D << D << 40000.333 << 7000.0 << 40000.0 << 0.33 << 6999.92;
    QTest::newRow("line 6 is set, so rounded: 0.005 takes a cent")
        << true << D << D << 40000.02 << 7000.0 << 40000.0 << 0.02 << 6999.99;
    QTest::newRow("a reduction just under the base leaves 0.25")
        << true << D << D << 67999.0 << 7000.0 << 40000.0 << 27999.0 << 0.25;
    QTest::newRow("a reduction equal to the base gives 0")
        << true << D << D << 68000.0 << 7000.0 << 40000.0 << 28000.0 << 0.0;
    QTest::newRow("a reduction beyond the base gives 0, not less")
        << true << D << D << 68001.0 << 7000.0 << 40000.0 << 28001.0 << 0.0;
    QTest::newRow("one claim day: line 7 prorated and set, so rounded")
        << true << D << 1.0 << 30000.0 << 7000.0 << 40000.0 << 0.0 << 19.18;
    QTest::newRow("no claim days: 0")
        << true << D << 0.0 << 30000.0 << 7000.0 << 40000.0 << 0.0 << 0.0;
}

void tst_Worksheets::ageAmount()
{
    QFETCH(bool, eligible);
    QFETCH(double, days);
    QFETCH(double, claimDays);
    QFETCH(double, income);
    CWSAgeAmtData ws;
    ws.SetAgeParameter(7000, 40000, 0.25, days, claimDays, eligible, income);
    QCOMPARE(ws.Calculate(), 0);
    QTEST(ws.AgeLine1.m_value, "line1");
    QTEST(ws.AgeLine3.m_value, "line3");
    QTEST(ws.AgeLine4.m_value, "line4");
    QTEST(ws.AgeLine7.m_value, "line7");
}

void tst_Worksheets::disabilitySelf_data()
{
    // Maximum 9000, threshold 3000; line 4 holds 77 before each run.
    QTest::addColumn<bool>("claim");
    QTest::addColumn<bool>("under18");
    QTest::addColumn<double>("line2");
    QTest::addColumn<double>("line2After");
    QTest::addColumn<double>("line4");
    QTest::addColumn<double>("line5");
    QTest::newRow("a negative line 2 clamps") << true << true << -50.0 << 0.0 << 0.0 << 9000.0;
    QTest::newRow("line 2 clamps without a claim too")
        << false << true << -50.0 << 0.0 << 77.0 << 0.0;
    QTest::newRow("line 2 one below the threshold: line 4 clamps")
        << true << true << 2999.0 << 2999.0 << 0.0 << 9000.0;
    QTest::newRow("line 2 at the threshold") << true << true << 3000.0 << 3000.0 << 0.0 << 9000.0;
    QTest::newRow("line 2 one above the threshold")
        << true << true << 3001.0 << 3001.0 << 1.0 << 8999.0;
    QTest::newRow("line 4 is set, so rounded")
        << true << true << 5000.004 << 5000.004 << 2000.0 << 7000.0;
    QTest::newRow("line 4 at the maximum: line 5 is 0")
        << true << true << 12000.0 << 12000.0 << 9000.0 << 0.0;
    QTest::newRow("line 4 above the maximum: line 5 clamps")
        << true << true << 12001.0 << 12001.0 << 9001.0 << 0.0;
    QTest::newRow("no claim: line 5 is 0, line 4 untouched")
        << false << true << 5000.0 << 5000.0 << 77.0 << 0.0;
    QTest::newRow("an adult: the same") << true << false << 5000.0 << 5000.0 << 77.0 << 0.0;
}

void tst_Worksheets::disabilitySelf()
{
    QFETCH(bool, claim);
    QFETCH(bool, under18);
    QFETCH(double, line2);
    CWSDisabilityAmtData ws;
    ws.SetF5844Parameter(9000, 3000, under18);
    ws.fld_ws5844_claim.m_value = claim;
    ws.fld_ws5844_2.m_value = line2;
    ws.fld_ws5844_4.m_value = 77;
    QCOMPARE(ws.Calculate(), 0);
    QTEST(ws.fld_ws5844_2.m_value, "line2After");
    QTEST(ws.fld_ws5844_4.m_value, "line4");
    QTEST(ws.fld_ws5844_5.m_value, "line5");
}

void tst_Worksheets::dividend_data()
{
    // Rates 0.15 and 0.1.
    QTest::addColumn<double>("line120");
    QTest::addColumn<double>("line180");
    QTest::addColumn<double>("difference");
    QTest::addColumn<double>("fld4");
    QTest::addColumn<double>("fld5");
    QTest::addColumn<double>("fld6");
    QTest::newRow("line 180 above 120: the difference clamps")
        << 100.0 << 400.0 << 0.0 << 60.0 << 0.0 << 60.0;
    QTest::newRow("equal lines: no difference") << 400.0 << 400.0 << 0.0 << 60.0 << 0.0 << 60.0;
    QTest::newRow("line 120 above 180") << 410.0 << 400.0 << 10.0 << 60.0 << 1.0 << 61.0;
    QTest::newRow("products are set, so rounded")
        << 1000.0 << 400.1 << 599.9 << 60.02 << 59.99 << 120.01;
}

void tst_Worksheets::dividend()
{
    QFETCH(double, line120);
    QFETCH(double, line180);
    CWSDividendTaxCreditData ws;
    ws.SetParameter(0.15, 0.1);
    ws.fld_Line120.m_value = line120;
    ws.fld_Line180.m_value = line180;
    QCOMPARE(ws.Calculate(), 0);
    QTEST(ws.fld_Line120_sub_Line180.m_value, "difference");
    QTEST(ws.fld_4.m_value, "fld4");
    QTEST(ws.fld_5.m_value, "fld5");
    QTEST(ws.fld_6.m_value, "fld6");
}

// An index that names no row: nothing past the list is read, and every output is 0.
void tst_Worksheets::noDependant_data()
{
    QTest::addColumn<int>("depIdx");
    QTest::newRow("0: none chosen") << 0;
    QTest::newRow("-1: one below none") << -1;
    QTest::newRow("INT_MIN: no overflow") << INT_MIN;
    QTest::newRow("3: one past the list") << 3;
    QTest::newRow("303 outside the infirm worksheet") << 303;
}

void tst_Worksheets::noDependant()
{
    QFETCH(int, depIdx);
    const auto preset = [](CWSBaseData& ws) {
        for (CField* f : ws.m_fields)
            if (f->getFieldType() == FIELD_TYPE_FLOAT)
                static_cast<CFloatField*>(f)->m_value = 99;
    };
    CWSDepAmtData dep;
    CWSCaregiverAmtData care;
    CWSDisabilityTransferAmtData transfer;
    CWSMedicalExpAdjustmentData med(2000, 0.03, 5000);
    for (CWSDepBaseData* ws :
         std::initializer_list<CWSDepBaseData*> { &dep, &care, &transfer, &med }) {
        attach(*ws, depIdx);
        preset(*ws);
        QCOMPARE(ws->Calculate(), 0);
    }
    QCOMPARE(dep.DepNetInc.m_value, 0.0);
    QCOMPARE(dep.AmountClaim.m_value, 0.0);
    QCOMPARE(care.DepNetInc.m_value, 0.0);
    QCOMPARE(care.fld_4.m_value, 0.0);
    QCOMPARE(care.AmountClaim.m_value, 0.0);
    QCOMPARE(transfer.fld_4.m_value, 0.0);
    QCOMPARE(transfer.DepTaxInc.m_value, 0.0);
    QCOMPARE(transfer.fld_claim.m_value, 0.0);
    QCOMPARE(med.DepNetInc.m_value, 0.0);
    QCOMPARE(med.fld_line2.m_value, 0.0);
    QCOMPARE(med.AmountClaim.m_value, 0.0);
}

void tst_Worksheets::depAmount_data()
{
    QTest::addColumn<int>("depIdx");
    QTest::addColumn<double>("base");
    QTest::addColumn<double>("max");
    QTest::addColumn<double>("netInc");
    QTest::addColumn<double>("claim");
    // The base is stored as given; the claim is set, so rounded.
    QTest::newRow("row 1: the F185 adjustment added, max 0 is none")
        << 1 << 10000.004 << 0.0 << 3500.0 << 6500.0;
    QTest::newRow("row 2, the last row") << 2 << 10000.004 << 0.0 << 4500.55 << 5499.45;
    QTest::newRow("income above the base clamps") << 1 << 3000.0 << 0.0 << 3500.0 << 0.0;
    QTest::newRow("a max above the claim changes nothing")
        << 1 << 10000.004 << 6500.01 << 3500.0 << 6500.0;
    QTest::newRow("a max below the claim caps it, stored")
        << 1 << 10000.004 << 5000.005 << 3500.0 << 5000.005;
    QTest::newRow("a max of 0.009 is a max") << 1 << 10000.004 << 0.009 << 3500.0 << 0.009;
    QTest::newRow("a max just under 0.009 is none") << 1 << 10000.004 << 0.0089 << 3500.0 << 6500.0;
}

void tst_Worksheets::depAmount()
{
    QFETCH(int, depIdx);
    QFETCH(double, base);
    QFETCH(double, max);
    CWSDepAmtData ws;
    attach(ws, depIdx);
    ws.SetParameter(base, max);
    QCOMPARE(ws.Calculate(), 0);
    QTEST(ws.DepNetInc.m_value, "netInc");
    QTEST(ws.AmountClaim.m_value, "claim");
}

void tst_Worksheets::infirm_data()
{
    // Base 8000.004, 58160 amount 1000; an income of 1999.996 is typed in before.
    QTest::addColumn<int>("depIdx");
    QTest::addColumn<bool>("withList");
    QTest::addColumn<double>("max");
    QTest::addColumn<int>("f5816Idx");
    QTest::addColumn<double>("netInc");
    QTest::addColumn<double>("fld3");
    QTest::addColumn<double>("claim");
    QTest::newRow("none chosen: line 3 still worked out")
        << 0 << true << 7000.0 << 0 << 0.0 << 7000.0 << 0.0;
    QTest::newRow("-1 is none") << -1 << true << 7000.0 << 0 << 0.0 << 7000.0 << 0.0;
    QTest::newRow("one past the list is none") << 3 << true << 7000.0 << 3 << 0.0 << 7000.0 << 0.0;
    QTest::newRow("row 1: its own income, no F185; set rounds")
        << 1 << true << 7000.0 << 2 << 3000.0 << 5000.0 << 5000.0;
    QTest::newRow("row 2, the last row")
        << 2 << true << 7000.0 << 0 << 4000.55 << 3999.45 << 3999.45;
    QTest::newRow("a max a cent below line 3 caps it")
        << 1 << true << 4999.99 << 0 << 3000.0 << 4999.99 << 4999.99;
    QTest::newRow("a max a cent above line 3 changes nothing")
        << 1 << true << 5000.01 << 0 << 3000.0 << 5000.0 << 5000.0;
    QTest::newRow("a max of 0 is a max") << 1 << true << 0.0 << 0 << 3000.0 << 0.0 << 0.0;
    QTest::newRow("58160 for the same dependant comes off")
        << 1 << true << 7000.0 << 1 << 3000.0 << 5000.0 << 4000.0;
    QTest::newRow("58160 beyond line 3 clamps the claim")
        << 1 << true << 500.0 << 1 << 3000.0 << 500.0 << 0.0;
    QTest::newRow("303 keeps the typed income, 58160 always comes off")
        << 303 << true << 9000.0 << 2 << 1999.996 << 6000.01 << 5000.01;
    QTest::newRow("303 never reads the list")
        << 303 << false << 9000.0 << 0 << 1999.996 << 6000.01 << 5000.01;
}

void tst_Worksheets::infirm()
{
    QFETCH(int, depIdx);
    QFETCH(bool, withList);
    QFETCH(double, max);
    QFETCH(int, f5816Idx);
    CWSInfirmDepAmtData ws;
    attach(ws, depIdx);
    if (!withList)
        ws.m_pDepInfo = nullptr;
    ws.SetParameterAndF5816Info(8000.004, max, f5816Idx, 1000);
    ws.DepNetInc.m_value = 1999.996;
    QCOMPARE(ws.Calculate(), 0);
    QTEST(ws.DepNetInc.m_value, "netInc");
    QTEST(ws.fld_3.m_value, "fld3");
    QTEST(ws.AmountClaim.m_value, "claim");
}

void tst_Worksheets::caregiver_data()
{
    // Base 8000, 58160 amount 1000: with a max of 7000, X is 5000 for row 1, 4000 after 58160.
    QTest::addColumn<int>("depIdx");
    QTest::addColumn<double>("max");
    QTest::addColumn<int>("f5816Idx");
    QTest::addColumn<bool>("overwrite");
    QTest::addColumn<double>("typed");
    QTest::addColumn<double>("claim");
    QTest::newRow("the computed amount replaces the typed one")
        << 1 << 7000.0 << 0 << false << 123.0 << 5000.0;
    QTest::newRow("row 2, the last row") << 2 << 7000.0 << 0 << false << 0.0 << 3999.45;
    QTest::newRow("a max a cent below line 3 caps it")
        << 1 << 4999.99 << 0 << false << 0.0 << 4999.99;
    QTest::newRow("a max of 0 is a max") << 1 << 0.0 << 0 << false << 123.0 << 0.0;
    QTest::newRow("58160 for the same dependant comes off")
        << 1 << 7000.0 << 1 << false << 0.0 << 4000.0;
    QTest::newRow("58160 for another dependant does not")
        << 1 << 7000.0 << 2 << false << 0.0 << 5000.0;
    QTest::newRow("58160 beyond line 3 clamps the claim") << 1 << 500.0 << 1 << false << 0.0 << 0.0;
    QTest::newRow("overwrite: typed a cent below X stays")
        << 1 << 7000.0 << 0 << true << 4999.99 << 4999.99;
    QTest::newRow("overwrite: typed stays unrounded")
        << 1 << 7000.0 << 0 << true << 4000.004 << 4000.004;
    QTest::newRow("overwrite: typed a cent above X drops to X")
        << 1 << 7000.0 << 0 << true << 5000.01 << 5000.0;
    QTest::newRow("overwrite: negative becomes 0") << 1 << 7000.0 << 0 << true << -10.0 << 0.0;
}

void tst_Worksheets::caregiver()
{
    QFETCH(int, depIdx);
    QFETCH(double, max);
    QFETCH(int, f5816Idx);
    QFETCH(bool, overwrite);
    QFETCH(double, typed);
    CWSCaregiverAmtData ws;
    attach(ws, depIdx);
    ws.SetParameter(8000, max, f5816Idx, 1000);
    ws.bOverwrite.m_value = overwrite;
    ws.AmountClaim.m_value = typed;
    QCOMPARE(ws.Calculate(), 0);
    QTEST(ws.AmountClaim.m_value, "claim");
}

void tst_Worksheets::disabilityTransfer_data()
{
    // Base 9000, line 2 maximum 5000, line 4 expense base 3000. Row 1 is aged 17, row 2 18.
    QTest::addColumn<int>("depIdx");
    QTest::addColumn<double>("childCare");
    QTest::addColumn<double>("fld4");
    QTest::addColumn<double>("depTaxInc");
    QTest::addColumn<bool>("overwrite");
    QTest::addColumn<double>("typed");
    QTest::addColumn<double>("line6");
    QTest::addColumn<double>("line8");
    QTest::addColumn<double>("line7");
    QTest::addColumn<double>("claim");
    QTest::newRow("aged 17: care expense above its base reduces line 6")
        << 1 << 4000.0 << 0.0 << 0.0 << false << 0.0 << 4000.0 << 13000.0 << 13000.0 << 13000.0;
    QTest::newRow("care expense at its base: line 6 whole")
        << 1 << 3000.0 << 0.0 << 0.0 << false << 0.0 << 5000.0 << 14000.0 << 14000.0 << 14000.0;
    QTest::newRow("care expense below its base: line 5 clamps")
        << 1 << 2000.0 << 0.0 << 0.0 << false << 0.0 << 5000.0 << 14000.0 << 14000.0 << 14000.0;
    QTest::newRow("care expense at base plus maximum: line 6 is 0")
        << 1 << 8000.0 << 0.0 << 0.0 << false << 0.0 << 0.0 << 9000.0 << 9000.0 << 9000.0;
    QTest::newRow("care expense beyond it: line 6 clamps")
        << 1 << 8001.0 << 0.0 << 0.0 << false << 0.0 << 0.0 << 9000.0 << 9000.0 << 9000.0;
    QTest::newRow("aged 18: no under-18 amount")
        << 2 << 4000.0 << 0.0 << 0.0 << false << 0.0 << 0.0 << 9000.0 << 9000.0 << 9000.0;
    QTest::newRow("fld_4 adds to line 7")
        << 2 << 0.0 << 500.0 << 2000.0 << false << 0.0 << 0.0 << 9000.0 << 7500.0 << 7500.0;
    QTest::newRow("a negative fld_4 counts as 0")
        << 2 << 0.0 << -50.0 << 0.0 << false << 0.0 << 0.0 << 9000.0 << 9000.0 << 9000.0;
    QTest::newRow("a negative tax income counts as 0")
        << 2 << 0.0 << 0.0 << -100.0 << false << 0.0 << 0.0 << 9000.0 << 9000.0 << 9000.0;
    QTest::newRow("tax income above line 5: line 7 clamps")
        << 2 << 0.0 << 0.0 << 20000.0 << false << 0.0 << 0.0 << 9000.0 << 0.0 << 0.0;
    QTest::newRow("not overwriting: the typed claim is replaced")
        << 2 << 0.0 << 0.0 << 2000.0 << false << 500.0 << 0.0 << 9000.0 << 7000.0 << 7000.0;
    QTest::newRow("overwrite: a typed claim below both stands")
        << 2 << 0.0 << 0.0 << 2000.0 << true << 500.0 << 0.0 << 9000.0 << 7000.0 << 500.0;
    QTest::newRow("overwrite: the lesser of lines 8 and 7 still caps")
        << 2 << 0.0 << 0.0 << 2000.0 << true << 20000.0 << 0.0 << 9000.0 << 7000.0 << 7000.0;
    QTest::newRow("overwrite: a claim of 0 stays 0")
        << 1 << 4000.0 << 0.0 << 0.0 << true << 0.0 << 4000.0 << 13000.0 << 13000.0 << 0.0;
    QTest::newRow("overwrite: a negative claim becomes 0")
        << 2 << 0.0 << 0.0 << 0.0 << true << -10.0 << 0.0 << 9000.0 << 9000.0 << 0.0;
}

void tst_Worksheets::disabilityTransfer()
{
    QFETCH(int, depIdx);
    QFETCH(double, childCare);
    QFETCH(double, fld4);
    QFETCH(double, depTaxInc);
    QFETCH(bool, overwrite);
    QFETCH(double, typed);
    CWSDisabilityTransferAmtData ws;
    attach(ws, depIdx);
    ws.SetF5848Parameter(9000, 5000, 3000);
    ws.fld_Line3ChldCareExp.m_value = childCare;
    ws.fld_4.m_value = fld4;
    ws.DepTaxInc.m_value = depTaxInc;
    ws.fld_overwrite.m_value = overwrite;
    ws.fld_claim.m_value = typed;
    ws.fld_Line6AmtUnder18.m_value = 77; // cleared first, whatever the age
    QCOMPARE(ws.Calculate(), 0);
    QTEST(ws.fld_Line6AmtUnder18.m_value, "line6");
    QTEST(ws.fld_Line8.m_value, "line8");
    QTEST(ws.fld_7.m_value, "line7");
    QTEST(ws.fld_claim.m_value, "claim");
}

void tst_Worksheets::medical_data()
{
    // Rate 0.03, claim limit 5000.
    QTest::addColumn<int>("depIdx");
    QTest::addColumn<double>("cap");
    QTest::addColumn<double>("expense");
    QTest::addColumn<double>("line2");
    QTest::addColumn<double>("claim");
    QTest::newRow("row 1: its own income, no F185") << 1 << 2000.0 << 1000.0 << 90.0 << 910.0;
    QTest::newRow("row 2: line 2 set, so rounded") << 2 << 2000.0 << 1000.0 << 120.02 << 879.98;
    QTest::newRow("a cap a cent above line 2 changes nothing")
        << 1 << 90.01 << 1000.0 << 90.0 << 910.0;
    QTest::newRow("a cap below line 2 is stored, the claim set")
        << 2 << 100.005 << 1000.0 << 100.005 << 900.0;
    QTest::newRow("an expense below line 2 gives 0") << 1 << 2000.0 << 50.0 << 90.0 << 0.0;
    QTest::newRow("a claim a cent below the limit stays")
        << 1 << 2000.0 << 5089.99 << 90.0 << 4999.99;
    QTest::newRow("a claim a cent above the limit: the limit")
        << 1 << 2000.0 << 5090.01 << 90.0 << 5000.0;
}

void tst_Worksheets::medical()
{
    QFETCH(int, depIdx);
    QFETCH(double, cap);
    QFETCH(double, expense);
    CWSMedicalExpAdjustmentData ws(cap, 0.03, 5000);
    attach(ws, depIdx);
    ws.fld_exp.m_value = expense;
    QCOMPARE(ws.Calculate(), 0);
    QTEST(ws.fld_line2.m_value, "line2");
    QTEST(ws.AmountClaim.m_value, "claim");
}

void tst_Worksheets::adoptionTotal_data()
{
    QTest::addColumn<QList<double>>("amounts");
    QTest::addColumn<double>("limit");
    QTest::addColumn<double>("total");
    QTest::newRow("the limit applies to each child alone")
        << QList<double> { 100, 100, 100, 100, 100, 100 } << 60.0 << 360.0;
    QTest::newRow("amounts under the limit count whole")
        << QList<double> { 10, 20, 30, 40, 50, 60 } << 100.0 << 210.0;
    QTest::newRow("at the limit counts whole, a cent above counts the limit")
        << QList<double> { 60, 60.01, 0, 0, 0, 0 } << 60.0 << 120.0;
    QTest::newRow("a negative amount is summed as it stands")
        << QList<double> { -5, 40.004, 0, 0, 0, 0 } << 60.0 << 35.004;
}

void tst_Worksheets::adoptionTotal()
{
    QFETCH(QList<double>, amounts);
    QFETCH(double, limit);
    DataWSAdoptionExpense ws;
    for (int i = 0; i < 6; ++i)
        static_cast<CFloatField*>(ws.m_fields[i])->m_value = amounts[i];
    QTEST(ws.CalcResult(limit), "total");
    for (int i = 0; i < 6; ++i) // no field is changed
        QCOMPARE(static_cast<CFloatField*>(ws.m_fields[i])->m_value, amounts[i]);
}

void tst_Worksheets::adoptionCalculateClampsOnly()
{
    DataWSAdoptionExpense ws;
    ws.fld_Adopt_ExpAmt_1.m_value = -5;
    ws.fld_Adopt_ExpAmt_2.m_value = 40.004;
    QCOMPARE(ws.Calculate(), 0);
    QCOMPARE(ws.fld_Adopt_ExpAmt_1.m_value, 0.0);
    QCOMPARE(ws.fld_Adopt_ExpAmt_2.m_value, 40.004); // not rounded
}

void tst_Worksheets::tuition()
{
    DataWS58600 ws;
    QCOMPARE(ws.fld_5860.m_id, 5860);
    ws.fld_5860.m_value = 10.01;
    QCOMPARE(ws.Calculate(0.5), 0);
    QCOMPARE(ws.m_factor, 0.5);
    QCOMPARE(ws.fld_claim.m_value, 5.005); // stored, not rounded
}

QTEST_GUILESS_MAIN(tst_Worksheets)
#include "tst_worksheets.moc"
