#include "cfloatfield.h"
#include "netfile.h"

#include <QtTest>
#include <limits>

namespace {

QString line(int code, const QString& value)
{
    return QStringLiteral("<comm:ReturnLine>\n<comm:FieldCode>%1</comm:FieldCode>\n"
                          "<comm:FieldValue>%2</comm:FieldValue>\n</comm:ReturnLine>\n")
        .arg(code)
        .arg(value);
}

QString line(int code, qint64 value)
{
    return line(code, QString::number(value));
}

struct Context {
    CString out;
    int count = 0;
    std::map<int, NetfileValueRecord> values;
    NetfileGenObjParamStru p;
    Context()
    {
        p.m_pOutput = &out;
        p.m_pCount = &count;
        p.m_pValues = &values;
    }
};

// Runs the named emitter; the field's own id is 777, so code 0 shows where it is used.
int runEmitter(const QString& fn, int code, double v, const QString& text, int maxLen, Context& c)
{
    CFloatField f(0.0, 777);
    f.m_value = v;
    CString s(text);
    if (fn == "dollarField")
        return NETFILE_DOLLAR_FIELD_Func(code, f, c.p);
    if (fn == "dollarFieldOne")
        return NETFILE_DOLLAR_FIELD_IFZEROTHENONE_Func(code, f, c.p);
    if (fn == "dollarValue")
        return NETFILE_DOLLAR_VALUE_Func(code, v, c.p);
    if (fn == "dollarValueOne")
        return NETFILE_DOLLAR_VALUE_IFZEROTHENONE_Func(code, v, c.p);
    if (fn == "cents")
        return NETFILE_DOLLARCENT_VALUE_Func(code, v, c.p);
    if (fn == "numeric")
        return NETFILE_NUMERIC_VALUE_Func(code, v, c.p);
    if (fn == "string")
        return NETFILE_STRING_Func(code, maxLen, s, c.p);
    if (fn == "stringValue")
        return NETFILE_STRING_VALUE_Func(code, maxLen, text.toLatin1().constData(), c.p);
    if (fn == "total")
        return NETFILE_COMMODITY_TOTAL_FIELD_Func(code, f, c.p);
    if (fn == "commodity")
        return NETFILE_DOLLAR_CCMMODITY_FIELD_Func(s, f, c.p);
    return -1;
}

const double NaN = std::numeric_limits<double>::quiet_NaN();
const double Inf = std::numeric_limits<double>::infinity();

} // namespace

class tst_Netfile : public QObject
{
    Q_OBJECT

private slots:
    void emitters_data();
    void emitters();
    void firstValueWins();
    void nullStringValueWritesNothing();
    void nullContextPointersAreSkipped();
};

void tst_Netfile::emitters_data()
{
    QTest::addColumn<QString>("fn");
    QTest::addColumn<int>("code");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("maxLen");
    QTest::addColumn<int>("result");
    QTest::addColumn<QString>("out");
    QTest::addColumn<int>("kind"); // 0: nothing kept
    QTest::addColumn<double>("kept");
    QTest::addColumn<QByteArray>("keptText");

    const QString none;
    const QString forty = QString(40, QLatin1Char('a'));
    auto row = [&](const char* name, const char* fn, int code, double v, int result,
                   const QString& out, int kind, double kept) {
        QTest::newRow(name) << QString::fromLatin1(fn) << code << v << none << 0 << result << out
                            << kind << kept << QByteArray();
    };
    auto text = [&](const char* name, const char* fn, const QString& s, int maxLen,
                    const QString& out, const QByteArray& keptText) {
        QTest::newRow(name) << QString::fromLatin1(fn) << 20 << 0.0 << s << maxLen << 0 << out
                            << (out.isEmpty() ? 0 : 4) << 0.0 << keptText;
    };

    row("field: bound is strict", "dollarField", 20, 0.009, 0, none, 0, 0);
    row("field: a cent is never filed as 0", "dollarField", 20, 0.01, 1, line(20, 1), 1, 0);
    row("field: negative cent files -1", "dollarField", 20, -0.01, 1, line(20, -1), 1, 0);
    row("field: half rounds away from zero", "dollarField", 20, 2.5, 1, line(20, 3), 1, 3);
    row("field: negative half rounds away", "dollarField", 20, -2.5, 1, line(20, -3), 1, -3);
    row("field: code 0 files the field id, keeps key 0", "dollarField", 0, 5.0, 1, line(777, 5), 1,
        5);
    row("field: NaN files nothing", "dollarField", 20, NaN, 0, none, 0, 0);
    row("field: infinity saturates", "dollarField", 20, Inf, 1,
        line(20, std::numeric_limits<qint64>::max()), 1, 9223372036854775807.0);
    row("fieldOne: zero files 1", "dollarFieldOne", 20, 0.0, 0, line(20, 1), 1, 1.0);
    row("fieldOne: rounds", "dollarFieldOne", 20, 12.5, 0, line(20, 13), 1, 12.5);
    row("fieldOne: just under a dollar files 1", "dollarFieldOne", 20, -0.99, 0, line(20, 1), 1,
        1.0);
    row("fieldOne: NaN files 1", "dollarFieldOne", 20, NaN, 0, line(20, 1), 1, 1.0);
    row("value: under a dollar files nothing", "dollarValue", 20, 0.99, 0, none, 0, 0);
    row("value: truncates", "dollarValue", 20, 1.99, 0, line(20, 1), 1, 1.99);
    row("value: negative truncates toward zero", "dollarValue", 20, -1.99, 0, line(20, -1), 1,
        -1.99);
    row("value: nudge absorbs representation error", "dollarValue", 20, 12.9999999, 0, line(20, 13),
        1, 12.9999999);
    row("value: huge negative saturates", "dollarValue", 20, -1e300, 0,
        line(20, std::numeric_limits<qint64>::min()), 1, -1e300);
    row("valueOne: zero files 1 and keeps 1.0", "dollarValueOne", 20, 0.0, 0, line(20, 1), 1, 1.0);
    row("valueOne: truncates", "dollarValueOne", 20, 12.7, 0, line(20, 12), 1, 12.7);
    row("cents: one cent", "cents", 20, 0.01, 0, line(20, 1), 2, 0.01);
    row("cents: no decimal point", "cents", 20, 12.3, 0, line(20, 1230), 2, 12.3);
    row("cents: bound is strict", "cents", 20, 0.009, 0, none, 0, 0);
    row("cents: beyond 32 bits", "cents", 20, 30000000.12, 0, line(20, Q_INT64_C(3000000012)), 2,
        30000000.12);
    row("cents: negative", "cents", 20, -4.56, 0, line(20, -456), 2, -4.56);
    row("numeric: truncates, keeps an int", "numeric", 20, 7.9, 0, line(20, 7), 3, 7);
    row("numeric: bound", "numeric", 20, -0.009, 0, none, 0, 0);
    row("numeric: huge keeps a saturated int", "numeric", 20, 1e12, 0,
        line(20, Q_INT64_C(1000000000000)), 3, 2147483647);
    row("total: under a dollar files nothing", "total", 20, 0.999, 0, none, 0, 0);
    row("total: rounds, keeps the unrounded value", "total", 20, 10.5, 1,
        "<sfd:CommodityTotalFieldCode>20</sfd:CommodityTotalFieldCode>\n<sfd:FieldAmount>11</"
        "sfd:FieldAmount>\n",
        1, 10.5);

    text("string: blank writes nothing", "string", "   ", 0, none, {});
    text("string: no limit writes all, keeps 31 bytes", "string", forty, 0, line(20, forty),
         QByteArray(31, 'a'));
    text("string: limit above 31 keeps nothing", "string", forty, 40, line(20, forty),
         QByteArray());
    text("string: limit cuts both", "string", forty, 5, line(20, QStringLiteral("aaaaa")), "aaaaa");
    text("string: escaped in output, raw in the map", "string", QStringLiteral("A&B"), 0,
         line(20, QStringLiteral("A&#38;B")), "A&B");
    text("string: map takes UTF-8 bytes", "string", QString(QChar(0xe9)), 1,
         line(20, QString(QChar(0xe9))), "\xc3");
    text("string: escaping may pass the limit", "string", QStringLiteral("A&B"), 3,
         line(20, QStringLiteral("A&#38;B")), "A&B");
    // Outside the contract: a negative limit cuts the text to nothing, so the
    // line carries its code alone, and the map keeps an empty text.
    text("string: negative limit files an empty line", "string", QStringLiteral("abc"), -1,
         QStringLiteral(
             "<comm:ReturnLine>\n<comm:FieldCode>20</comm:FieldCode>\n</comm:ReturnLine>\n"),
         QByteArray());
    text("stringValue: forwards", "stringValue", QStringLiteral("Ottawa"), 0,
         line(20, QStringLiteral("Ottawa")), "Ottawa");

    QTest::newRow("commodity: line, truncated, escaped code, no map")
        << QStringLiteral("commodity") << 0 << 12.7 << QStringLiteral("C&1") << 0 << 1
        << QStringLiteral("<sfd:Commodity>\n<sfd:CommodityCode>C&#38;1</sfd:CommodityCode>\n"
                          "<sfd:CommodityAmount>12</sfd:CommodityAmount>\n</sfd:Commodity>\n")
        << 0 << 0.0 << QByteArray();
    QTest::newRow("commodity: bound")
        << QStringLiteral("commodity") << 0 << 0.009 << QStringLiteral("C") << 0 << 0 << QString()
        << 0 << 0.0 << QByteArray();
}

void tst_Netfile::emitters()
{
    QFETCH(QString, fn);
    QFETCH(int, code);
    QFETCH(double, value);
    QFETCH(QString, text);
    QFETCH(int, maxLen);
    QFETCH(int, result);
    QFETCH(QString, out);
    QFETCH(int, kind);
    QFETCH(double, kept);
    QFETCH(QByteArray, keptText);

    Context c;
    c.out = QStringLiteral("kept|");
    QCOMPARE(runEmitter(fn, code, value, text, maxLen, c), result);
    QCOMPARE(QString(c.out), QStringLiteral("kept|") + out);
    QCOMPARE(c.count, out.isEmpty() ? 0 : 1);
    QCOMPARE(int(c.values.size()), kind ? 1 : 0);
    if (!kind)
        return;
    const NetfileValueRecord& r = c.values.begin()->second;
    QCOMPARE(c.values.begin()->first, code);
    QCOMPARE(r.m_kind, kind);
    if (kind == 3)
        QCOMPARE(r.m_value.m_nValue, int(kept));
    else if (kind == 4)
        QCOMPARE(QByteArray(r.m_value.m_szValue), keptText);
    else
        QCOMPARE(r.m_value.m_dValue, kept);
}

void tst_Netfile::firstValueWins()
{
    Context c;
    CString first("first"), second("second");
    NETFILE_STRING_Func(9, 0, first, c.p);
    NETFILE_STRING_Func(9, 0, second, c.p);
    NETFILE_DOLLAR_VALUE_Func(9, 50.0, c.p);
    QCOMPARE(QString(c.out),
             line(9, QStringLiteral("first")) + line(9, QStringLiteral("second")) + line(9, 50));
    QCOMPARE(c.count, 3);
    QCOMPARE(c.values.size(), size_t(1));
    QCOMPARE(c.values[9].m_kind, 4);
    QCOMPARE(QByteArray(c.values[9].m_value.m_szValue), QByteArray("first"));
}

void tst_Netfile::nullStringValueWritesNothing()
{
    Context c;
    QCOMPARE(NETFILE_STRING_VALUE_Func(1, 0, nullptr, c.p), 0);
    QVERIFY(c.out.isEmpty());
    QCOMPARE(c.count, 0);
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
