#include "cfloatfield.h"
#include "netfile.h"

#include <QtTest>

#include <limits>

namespace {

constexpr int Code = 20;
// The field's own id, which only a code of 0 brings into the output.
constexpr int FieldId = 777;
const QString Earlier = QStringLiteral("earlier|"); // writers append, never clear

const double NaN = std::numeric_limits<double>::quiet_NaN();
const double Inf = std::numeric_limits<double>::infinity();

// One line record as the filing format has it.
QString line(int code, const QString& value)
{
    return QStringLiteral("<comm:ReturnLine>\n<comm:FieldCode>%1</comm:FieldCode>\n"
                          "<comm:FieldValue>%2</comm:FieldValue>\n</comm:ReturnLine>\n")
        .arg(code)
        .arg(value);
}

struct Context {
    CString out = Earlier;
    int count = 0;
    std::map<int, NetfileValueRecord> values;
    NetfileGenObjParamStru p;
    Context()
    {
        p.m_pOutput = &out;
        p.m_pCount = &count;
        p.m_pValues = &values;
    }
    // The only value kept, when it is kept under `key`; null otherwise.
    const NetfileValueRecord* keptAs(int key, int kind) const
    {
        const auto it = values.find(key);
        return values.size() == 1 && it != values.end() && it->second.m_kind == kind ? &it->second
                                                                                     : nullptr;
    }
};

// What a call appended (one record or nothing) and that each record is counted.
void checkWritten(const Context& c, const QString& record)
{
    QCOMPARE(QString(c.out), Earlier + record);
    QCOMPARE(c.count, record.isEmpty() ? 0 : 1);
}

} // namespace

class tst_Netfile : public QObject
{
    Q_OBJECT

private slots:
    void dollarField_data();
    void dollarField();
    void dollarFieldIfZeroThenOne_data();
    void dollarFieldIfZeroThenOne();
    void dollarValue_data();
    void dollarValue();
    void dollarValueIfZeroThenOne_data();
    void dollarValueIfZeroThenOne();
    void dollarCent_data();
    void dollarCent();
    void numeric_data();
    void numeric();
    void string_data();
    void string();
    void negativeLimitOutsideTheContract();
    void stringValue_data();
    void stringValue();
    void commodityTotal_data();
    void commodityTotal();
    void commodity_data();
    void commodity();
    void firstValueWins();
    void nullContextPointersAreSkipped();
};

void tst_Netfile::dollarField_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("filedCode");
    QTest::addColumn<QString>("filed"); // null: nothing written
    QTest::addColumn<double>("kept");

    QTest::newRow("at the bound files nothing") << Code << 0.009 << Code << QString() << 0.0;
    QTest::newRow("negative at the bound files nothing")
        << Code << -0.009 << Code << QString() << 0.0;
    QTest::newRow("just past the bound files 1, never 0, keeps the rounded 0")
        << Code << 0.0091 << Code << "1" << 0.0;
    QTest::newRow("negative just past the bound files -1")
        << Code << -0.0091 << Code << "-1" << 0.0;
    QTest::newRow("under half rounds down") << Code << 2.4999 << Code << "2" << 2.0;
    QTest::newRow("half rounds away from zero") << Code << 2.5 << Code << "3" << 3.0;
    QTest::newRow("negative half rounds away from zero") << Code << -2.5 << Code << "-3" << -3.0;
    QTest::newRow("code 0 files the field's id and keeps key 0")
        << 0 << 5.0 << FieldId << "5" << 5.0;
    QTest::newRow("NaN files nothing") << Code << NaN << Code << QString() << 0.0;
    QTest::newRow("infinity saturates")
        << Code << Inf << Code << "9223372036854775807" << 9223372036854775807.0;
}

void tst_Netfile::dollarField()
{
    QFETCH(int, code);
    QFETCH(double, value);
    QFETCH(int, filedCode);
    QFETCH(QString, filed);
    QFETCH(double, kept);

    Context c;
    CFloatField f(0.0, FieldId);
    f.m_value = value;
    QCOMPARE(NETFILE_DOLLAR_FIELD_Func(code, f, c.p), filed.isNull() ? 0 : 1);
    checkWritten(c, filed.isNull() ? QString() : line(filedCode, filed));
    if (filed.isNull()) {
        QVERIFY(c.values.empty());
        return;
    }
    const NetfileValueRecord* r = c.keptAs(code, NetfileValueRecord::Dollar);
    QVERIFY(r);
    QCOMPARE(r->m_value.m_dValue, kept);
}

// Always files: the rounded value past 0.99999999, otherwise the constant 1.
void tst_Netfile::dollarFieldIfZeroThenOne_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("filed");
    QTest::addColumn<double>("kept");

    QTest::newRow("zero files 1 and keeps 1.0") << 0.0 << "1" << 1.0;
    QTest::newRow("at the bound keeps 1.0") << 0.99999999 << "1" << 1.0;
    QTest::newRow("just past the bound keeps the value") << 0.999999995 << "1" << 0.999999995;
    QTest::newRow("negative at the bound files 1, not -1") << -0.99999999 << "1" << 1.0;
    QTest::newRow("negative just past the bound is rounded")
        << -0.999999995 << "-1" << -0.999999995;
    QTest::newRow("half rounds away from zero") << 12.5 << "13" << 12.5;
    QTest::newRow("negative half rounds away from zero") << -12.5 << "-13" << -12.5;
    QTest::newRow("NaN files 1") << NaN << "1" << 1.0;
}

void tst_Netfile::dollarFieldIfZeroThenOne()
{
    QFETCH(double, value);
    QFETCH(QString, filed);
    QFETCH(double, kept);

    Context c;
    CFloatField f(0.0, FieldId);
    f.m_value = value;
    QCOMPARE(NETFILE_DOLLAR_FIELD_IFZEROTHENONE_Func(Code, f, c.p), 0);
    checkWritten(c, line(Code, filed));
    const NetfileValueRecord* r = c.keptAs(Code, NetfileValueRecord::Dollar);
    QVERIFY(r);
    QCOMPARE(r->m_value.m_dValue, kept);
}

// Past 0.99999999 only; truncated, with a nudge of a millionth against
// representation error. The map keeps the value as given.
void tst_Netfile::dollarValue_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("filed"); // null: nothing written

    QTest::newRow("at the bound files nothing") << 0.99999999 << QString();
    QTest::newRow("just past the bound files 1") << 0.999999995 << "1";
    QTest::newRow("negative at the bound files nothing") << -0.99999999 << QString();
    QTest::newRow("negative just past the bound files -1") << -0.999999995 << "-1";
    QTest::newRow("truncates, does not round") << 1.99 << "1";
    QTest::newRow("negative truncates toward zero") << -1.99 << "-1";
    QTest::newRow("the nudge absorbs representation error") << 12.9999999 << "13";
    QTest::newRow("the nudge is only a millionth") << 12.999998 << "12";
    QTest::newRow("huge negative saturates") << -1e300 << "-9223372036854775808";
    QTest::newRow("NaN files nothing") << NaN << QString();
}

void tst_Netfile::dollarValue()
{
    QFETCH(double, value);
    QFETCH(QString, filed);

    Context c;
    QCOMPARE(NETFILE_DOLLAR_VALUE_Func(Code, value, c.p), 0);
    checkWritten(c, filed.isNull() ? QString() : line(Code, filed));
    if (filed.isNull()) {
        QVERIFY(c.values.empty());
        return;
    }
    const NetfileValueRecord* r = c.keptAs(Code, NetfileValueRecord::Dollar);
    QVERIFY(r);
    QCOMPARE(r->m_value.m_dValue, value);
}

void tst_Netfile::dollarValueIfZeroThenOne_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("filed");
    QTest::addColumn<double>("kept");

    QTest::newRow("zero files 1 and keeps 1.0") << 0.0 << "1" << 1.0;
    QTest::newRow("at the bound keeps 1.0") << 0.99999999 << "1" << 1.0;
    QTest::newRow("just past the bound keeps the value") << 0.999999995 << "1" << 0.999999995;
    QTest::newRow("negative at the bound files 1, not -1") << -0.99999999 << "1" << 1.0;
    QTest::newRow("negative just past the bound is truncated")
        << -0.999999995 << "-1" << -0.999999995;
    QTest::newRow("truncates, does not round") << 12.7 << "12" << 12.7;
}

void tst_Netfile::dollarValueIfZeroThenOne()
{
    QFETCH(double, value);
    QFETCH(QString, filed);
    QFETCH(double, kept);

    Context c;
    QCOMPARE(NETFILE_DOLLAR_VALUE_IFZEROTHENONE_Func(Code, value, c.p), 0);
    checkWritten(c, line(Code, filed));
    const NetfileValueRecord* r = c.keptAs(Code, NetfileValueRecord::Dollar);
    QVERIFY(r);
    QCOMPARE(r->m_value.m_dValue, kept);
}

// Past 0.009; whole cents of the nudged value, with no decimal point.
void tst_Netfile::dollarCent_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("filed"); // null: nothing written

    QTest::newRow("at the bound files nothing") << 0.009 << QString();
    QTest::newRow("negative at the bound files nothing") << -0.009 << QString();
    QTest::newRow("just past the bound files its whole cents, 0") << 0.0091 << "0";
    QTest::newRow("one cent") << 0.01 << "1";
    QTest::newRow("no decimal point") << 12.3 << "1230";
    QTest::newRow("the nudge keeps 0.29 at 29 cents") << 0.29 << "29";
    QTest::newRow("negative") << -4.56 << "-456";
    QTest::newRow("cents beyond 32 bits") << 30000000.12 << "3000000012";
}

void tst_Netfile::dollarCent()
{
    QFETCH(double, value);
    QFETCH(QString, filed);

    Context c;
    QCOMPARE(NETFILE_DOLLARCENT_VALUE_Func(Code, value, c.p), 0);
    checkWritten(c, filed.isNull() ? QString() : line(Code, filed));
    if (filed.isNull()) {
        QVERIFY(c.values.empty());
        return;
    }
    const NetfileValueRecord* r = c.keptAs(Code, NetfileValueRecord::DollarCent);
    QVERIFY(r);
    QCOMPARE(r->m_value.m_dValue, value);
}

// Past 0.009; the nudged value truncated, and the value itself cut to an int kept.
void tst_Netfile::numeric_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("filed"); // null: nothing written
    QTest::addColumn<int>("kept");

    QTest::newRow("at the bound files nothing") << 0.009 << QString() << 0;
    QTest::newRow("negative at the bound files nothing") << -0.009 << QString() << 0;
    QTest::newRow("just past the bound is truncated to 0") << 0.0091 << "0" << 0;
    QTest::newRow("truncates") << 7.9 << "7" << 7;
    QTest::newRow("negative truncates toward zero") << -7.9 << "-7" << -7;
    QTest::newRow("the kept value is cut without the nudge") << 12.9999999 << "13" << 12;
    QTest::newRow("huge keeps a saturated int") << 1e12 << "1000000000000" << 2147483647;
}

void tst_Netfile::numeric()
{
    QFETCH(double, value);
    QFETCH(QString, filed);
    QFETCH(int, kept);

    Context c;
    QCOMPARE(NETFILE_NUMERIC_VALUE_Func(Code, value, c.p), 0);
    checkWritten(c, filed.isNull() ? QString() : line(Code, filed));
    if (filed.isNull()) {
        QVERIFY(c.values.empty());
        return;
    }
    const NetfileValueRecord* r = c.keptAs(Code, NetfileValueRecord::Number);
    QVERIFY(r);
    QCOMPARE(r->m_value.m_nValue, kept);
}

// The output is cut to maxLen characters (0: no limit) and then escaped; the map
// keeps up to min(maxLen, 31) bytes of UTF-8, 31 for 0, and nothing past 31.
void tst_Netfile::string_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("maxLen");
    QTest::addColumn<QString>("filed"); // null: nothing written
    QTest::addColumn<QByteArray>("kept");

    const QString forty = QStringLiteral("abcdefghijklmnopqrstuvwxyz0123456789ABCD");
    QTest::newRow("blank writes nothing") << "   " << 0 << QString() << QByteArray();
    QTest::newRow("empty writes nothing") << "" << 0 << QString() << QByteArray();
    QTest::newRow("surrounding blanks are kept") << " a " << 0 << " a " << QByteArray(" a ");
    QTest::newRow("no limit writes all, keeps 31 bytes")
        << forty << 0 << forty << forty.left(31).toLatin1();
    QTest::newRow("limit 1 cuts both to one") << forty << 1 << "a" << QByteArray("a");
    QTest::newRow("limit 31 is the most the map keeps")
        << forty << 31 << forty.left(31) << forty.left(31).toLatin1();
    QTest::newRow("limit 32 keeps nothing in the map")
        << forty << 32 << forty.left(32) << QByteArray();
    QTest::newRow("escaped in the output, raw in the map")
        << "A&B" << 0 << "A&#38;B" << QByteArray("A&B");
    QTest::newRow("escaping may pass the limit") << "A&B" << 3 << "A&#38;B" << QByteArray("A&B");
    QTest::newRow("the map cuts UTF-8 bytes inside a character")
        << QStringLiteral("\u00e9") << 1 << QStringLiteral("\u00e9") << QByteArray("\xc3");
}

void tst_Netfile::string()
{
    QFETCH(QString, text);
    QFETCH(int, maxLen);
    QFETCH(QString, filed);
    QFETCH(QByteArray, kept);

    Context c;
    CString s(text);
    QCOMPARE(NETFILE_STRING_Func(Code, maxLen, s, c.p), 0);
    checkWritten(c, filed.isNull() ? QString() : line(Code, filed));
    if (filed.isNull()) {
        QVERIFY(c.values.empty());
        return;
    }
    const NetfileValueRecord* r = c.keptAs(Code, NetfileValueRecord::Text);
    QVERIFY(r);
    QCOMPARE(QByteArray(r->m_value.m_szValue), kept);
}

// A negative limit cuts the text to nothing: the line carries its code alone,
// and the map keeps an empty text. Nothing is read or written out of bounds.
void tst_Netfile::negativeLimitOutsideTheContract()
{
    Context c;
    CString s("abc");
    QCOMPARE(NETFILE_STRING_Func(Code, -1, s, c.p), 0);
    checkWritten(
        c,
        QStringLiteral(
            "<comm:ReturnLine>\n<comm:FieldCode>20</comm:FieldCode>\n</comm:ReturnLine>\n"));
    const NetfileValueRecord* r = c.keptAs(Code, NetfileValueRecord::Text);
    QVERIFY(r);
    QCOMPARE(QByteArray(r->m_value.m_szValue), QByteArray());
}

void tst_Netfile::stringValue_data()
{
    QTest::addColumn<QByteArray>("text"); // null: a null pointer
    QTest::addColumn<QString>("filed"); // null: nothing written
    QTest::addColumn<QByteArray>("kept");

    QTest::newRow("null writes nothing") << QByteArray() << QString() << QByteArray();
    QTest::newRow("blank writes nothing") << QByteArray("  ") << QString() << QByteArray();
    QTest::newRow("forwards to the text form")
        << QByteArray("Ottawa") << "Ottawa" << QByteArray("Ottawa");
    QTest::newRow("read as Latin-1") << QByteArray("\xe9t\xe9") << QStringLiteral("\u00e9t\u00e9")
                                     << QByteArray("\xc3\xa9t\xc3\xa9");
}

void tst_Netfile::stringValue()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, filed);
    QFETCH(QByteArray, kept);

    Context c;
    QCOMPARE(NETFILE_STRING_VALUE_Func(Code, 0, text.isNull() ? nullptr : text.constData(), c.p),
             0);
    checkWritten(c, filed.isNull() ? QString() : line(Code, filed));
    if (filed.isNull()) {
        QVERIFY(c.values.empty());
        return;
    }
    const NetfileValueRecord* r = c.keptAs(Code, NetfileValueRecord::Text);
    QVERIFY(r);
    QCOMPARE(QByteArray(r->m_value.m_szValue), kept);
}

// Past 0.99999999; rounded in the output, kept unrounded.
void tst_Netfile::commodityTotal_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("filed"); // null: nothing written

    QTest::newRow("at the bound files nothing") << 0.99999999 << QString();
    QTest::newRow("negative at the bound files nothing") << -0.99999999 << QString();
    QTest::newRow("just past the bound is rounded to 1") << 0.999999995 << "1";
    QTest::newRow("under half rounds down") << 10.49 << "10";
    QTest::newRow("half rounds away from zero") << 10.5 << "11";
    QTest::newRow("negative half rounds away from zero") << -10.5 << "-11";
}

void tst_Netfile::commodityTotal()
{
    QFETCH(double, value);
    QFETCH(QString, filed);

    Context c;
    CFloatField f(0.0, FieldId);
    f.m_value = value;
    QCOMPARE(NETFILE_COMMODITY_TOTAL_FIELD_Func(Code, f, c.p), filed.isNull() ? 0 : 1);
    checkWritten(c,
                 filed.isNull() ? QString()
                                : QStringLiteral("<sfd:CommodityTotalFieldCode>20</"
                                                 "sfd:CommodityTotalFieldCode>\n"
                                                 "<sfd:FieldAmount>%1</sfd:FieldAmount>\n")
                                      .arg(filed));
    if (filed.isNull()) {
        QVERIFY(c.values.empty());
        return;
    }
    const NetfileValueRecord* r = c.keptAs(Code, NetfileValueRecord::Dollar);
    QVERIFY(r);
    QCOMPARE(r->m_value.m_dValue, value);
}

// Past 0.009; truncated; the code escaped; nothing kept in the map.
void tst_Netfile::commodity_data()
{
    QTest::addColumn<QString>("commodity");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("filedCommodity");
    QTest::addColumn<QString>("filed"); // null: nothing written

    QTest::newRow("at the bound files nothing") << "C" << 0.009 << "C" << QString();
    QTest::newRow("negative at the bound files nothing") << "C" << -0.009 << "C" << QString();
    QTest::newRow("just past the bound is truncated to 0") << "C" << 0.0091 << "C"
                                                           << "0";
    QTest::newRow("truncated, not rounded") << "C" << 12.7 << "C"
                                            << "12";
    QTest::newRow("negative truncated toward zero") << "C" << -12.7 << "C"
                                                    << "-12";
    QTest::newRow("the code is escaped") << "C&1" << 5.0 << "C&#38;1"
                                         << "5";
}

void tst_Netfile::commodity()
{
    QFETCH(QString, commodity);
    QFETCH(double, value);
    QFETCH(QString, filedCommodity);
    QFETCH(QString, filed);

    Context c;
    CString code(commodity);
    CFloatField f(0.0, FieldId);
    f.m_value = value;
    QCOMPARE(NETFILE_DOLLAR_CCMMODITY_FIELD_Func(code, f, c.p), filed.isNull() ? 0 : 1);
    checkWritten(
        c,
        filed.isNull()
            ? QString()
            : QStringLiteral("<sfd:Commodity>\n<sfd:CommodityCode>%1</sfd:CommodityCode>\n"
                             "<sfd:CommodityAmount>%2</sfd:CommodityAmount>\n</sfd:Commodity>\n")
                  .arg(filedCommodity, filed));
    QVERIFY(c.values.empty());
}

// A later record of the same code is written and counted; the map keeps the first.
void tst_Netfile::firstValueWins()
{
    Context c;
    CString first("first"), second("second");
    NETFILE_STRING_Func(9, 0, first, c.p);
    NETFILE_STRING_Func(9, 0, second, c.p);
    NETFILE_DOLLAR_VALUE_Func(9, 50.0, c.p);
    QCOMPARE(QString(c.out), Earlier + line(9, "first") + line(9, "second") + line(9, "50"));
    QCOMPARE(c.count, 3);
    const NetfileValueRecord* r = c.keptAs(9, NetfileValueRecord::Text);
    QVERIFY(r);
    QCOMPARE(QByteArray(r->m_value.m_szValue), QByteArray("first"));
}

void tst_Netfile::nullContextPointersAreSkipped()
{
    NetfileGenObjParamStru p;
    CFloatField f(0.0, 3);
    f.m_value = 4.0;
    QCOMPARE(NETFILE_DOLLAR_FIELD_Func(1, f, p), 1);
    QCOMPARE(NETFILE_DOLLARCENT_VALUE_Func(1, 4.0, p), 0);
}

QTEST_GUILESS_MAIN(tst_Netfile)
#include "tst_netfile.moc"
