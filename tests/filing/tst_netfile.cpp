#include "cfloatfield.h"
#include "netfile.h"

#include <QtTest>

using S = QString;
using P = NetfileGenObjParamStru;
using Emit = int (*)(const S&, P&);
Q_DECLARE_METATYPE(Emit)

namespace {

constexpr int Code = 20;
constexpr int FieldId = 777; // filed only for code 0
const S Earlier = "earlier|"; // emitters append, never clear

S L(const S& value, int code = Code)
{
    return S("<comm:ReturnLine>\n<comm:FieldCode>%1</comm:FieldCode>\n"
             "<comm:FieldValue>%2</comm:FieldValue>\n</comm:ReturnLine>\n")
        .arg(code)
        .arg(value);
}

const auto lv = [](CString&& s) -> CString& { return s; };

// Code 20 and the row's amount, in a field holding it unclamped.
template<int (*F)(int, CFloatField&, P&), int code = Code> int byField(const S& in, P& p)
{
    CFloatField f(0.0, FieldId);
    f.m_value = in.toDouble();
    return F(code, f, p);
}
template<int (*F)(int, double, P&)> int byValue(const S& in, P& p)
{
    return F(Code, in.toDouble(), p);
}
int commodity(int, CFloatField& f, P& p)
{
    return NETFILE_DOLLAR_CCMMODITY_FIELD_Func(lv("C&1"), f, p);
}

struct Context {
    CString out = Earlier;
    int count = 0;
    std::map<int, NetfileValueRecord> values;
    P p { 0, &out, &count, &values };
    // Kind letter and value ("=": `given`), the code in front unless it is 20.
    S kept(double given) const
    {
        S all;
        for (const auto& [code, r] : values) {
            const int k = r.m_kind;
            const double d
                = k == NetfileValueRecord::Number ? r.m_value.m_nValue : r.m_value.m_dValue;
            all += (code == Code ? S() : S::number(code) + ':') + S(" DCNT")[k]
                + (k == NetfileValueRecord::Text ? S::fromLatin1(r.m_value.m_szValue)
                       : d == given              ? S("=")
                                                 : S::number(d, 'g', 12));
        }
        return all;
    }
};

} // namespace

class tst_Netfile : public QObject
{
    Q_OBJECT

private slots:
    // Bounds, rounding, what is kept and returned. Text is "maxLen|text": cut to
    // maxLen (0: none), escaped; min(maxLen, 31) UTF-8 bytes kept, none past 31.
    void emitters_data()
    {
        QTest::addColumn<Emit>("emitter");
        QTest::addColumn<S>("in");
        QTest::addColumn<S>("record"); // empty: nothing written
        QTest::addColumn<int>("result");
        QTest::addColumn<S>("kept");
        const Emit field = byField<NETFILE_DOLLAR_FIELD_Func>,
                   field0 = byField<NETFILE_DOLLAR_FIELD_Func, 0>;
        const Emit fieldOr1 = byField<NETFILE_DOLLAR_FIELD_IFZEROTHENONE_Func>;
        const Emit value = byValue<NETFILE_DOLLAR_VALUE_Func>,
                   cent = byValue<NETFILE_DOLLARCENT_VALUE_Func>;
        const Emit valueOr1 = byValue<NETFILE_DOLLAR_VALUE_IFZEROTHENONE_Func>;
        const Emit numeric = byValue<NETFILE_NUMERIC_VALUE_Func>, goods = byField<commodity>;
        const Emit total = byField<NETFILE_COMMODITY_TOTAL_FIELD_Func>;
        const Emit text = [](const S& in, P& p) {
            const int maxLen = in.section('|', 0, 0).toInt();
            return NETFILE_STRING_Func(Code, maxLen, lv(in.section('|', 1)), p);
        };
        const S all = S("0123456789").repeated(4), kept31 = "T" + all.left(31);
        QTest::newRow("field: at the bound") << field << "0.009" << S() << 0 << S();
        QTest::newRow("field: past it, 1, never 0") << field << "0.0091" << L("1") << 1 << "D0";
        QTest::newRow("field: under half") << field << "2.4999" << L("2") << 1 << "D2";
        QTest::newRow("field: half away from zero") << field << "2.5" << L("3") << 1 << "D3";
        QTest::newRow("field: code 0, the id") << field0 << "5" << L("5", FieldId) << 1 << "0:D=";
        QTest::newRow("field: NaN") << field << "nan" << S() << 0 << S();
        QTest::newRow("field or 1: at bound") << fieldOr1 << "0.99999999" << L("1") << 0 << "D1";
        QTest::newRow("field or 1: past") << fieldOr1 << "0.999999995" << L("1") << 0 << "D=";
        QTest::newRow("field or 1: -past") << fieldOr1 << "-0.999999995" << L("-1") << 0 << "D=";
        QTest::newRow("value: at the bound") << value << "0.99999999" << S() << 0 << S();
        QTest::newRow("value: past it") << value << "0.999999995" << L("1") << 0 << "D=";
        QTest::newRow("value: nudged a millionth") << value << "12.9999999" << L("13") << 0 << "D=";
        QTest::newRow("value: only a millionth") << value << "12.999998" << L("12") << 0 << "D=";
        QTest::newRow("value: saturates")
            << value << "-1e300" << L("-9223372036854775808") << 0 << "D=";
        QTest::newRow("value or 1: at bound") << valueOr1 << "0.99999999" << L("1") << 0 << "D1";
        QTest::newRow("value or 1: past") << valueOr1 << "0.999999995" << L("1") << 0 << "D=";
        QTest::newRow("value or 1: -past") << valueOr1 << "-0.999999995" << L("-1") << 0 << "D=";
        QTest::newRow("cent: at the bound") << cent << "0.009" << S() << 0 << S();
        QTest::newRow("cent: past it, whole cents") << cent << "0.0091" << L("0") << 0 << "C=";
        QTest::newRow("cent: nudged to 29 cents") << cent << "0.29" << L("29") << 0 << "C=";
        QTest::newRow("cent: negative") << cent << "-4.56" << L("-456") << 0 << "C=";
        QTest::newRow("cent: past 32 bits")
            << cent << "30000000.12" << L("3000000012") << 0 << "C=";
        QTest::newRow("numeric: at the bound") << numeric << "0.009" << S() << 0 << S();
        QTest::newRow("numeric: past it") << numeric << "0.0091" << L("0") << 0 << "N0";
        QTest::newRow("numeric: kept, not nudged")
            << numeric << "12.9999999" << L("13") << 0 << "N12";
        QTest::newRow("numeric: kept int full")
            << numeric << "1e12" << L("1000000000000") << 0 << "N2147483647";
        QTest::newRow("total: at the bound") << total << "0.99999999" << S() << 0 << S();
        QTest::newRow("total: rounded, kept as is")
            << total << "-10.5"
            << "<sfd:CommodityTotalFieldCode>20</"
               "sfd:CommodityTotalFieldCode>\n<sfd:FieldAmount>-11</sfd:FieldAmount>\n"
            << 1 << "D=";
        QTest::newRow("commodity: at the bound") << goods << "0.009" << S() << 0 << S();
        QTest::newRow("commodity: truncated, code escaped")
            << goods << "-12.7"
            << "<sfd:Commodity>\n<sfd:CommodityCode>C&#38;1</"
               "sfd:CommodityCode>\n<sfd:CommodityAmount>-12</sfd:CommodityAmount>\n</"
               "sfd:Commodity>\n"
            << 1 << S();
        QTest::newRow("text: blank writes nothing") << text << "0|   " << S() << 0 << S();
        QTest::newRow("text: no limit, 31 kept") << text << "0|" + all << L(all) << 0 << kept31;
        QTest::newRow("text: 31 kept") << text << "31|" + all << L(all.left(31)) << 0 << kept31;
        QTest::newRow("text: 32, none") << text << "32|" + all << L(all.left(32)) << 0 << "T";
        QTest::newRow("text: cut in UTF-8") << text << "1|\u00e9" << L("\u00e9") << 0 << "T\u00c3";
        // Outside the contract: the text is cut to nothing, nothing is overrun.
        QTest::newRow("text: negative limit")
            << text << "-1|abc"
            << "<comm:ReturnLine>\n<comm:FieldCode>20</comm:FieldCode>\n</comm:ReturnLine>\n"
            << 0 << "T";
    }
    void emitters()
    {
        QFETCH(Emit, emitter);
        QFETCH(S, in);
        QFETCH(S, record);
        P none; // every pointer null
        QTEST(emitter(in, none), "result");
        Context c;
        QTEST(emitter(in, c.p), "result");
        QCOMPARE(S(c.out), Earlier + record);
        QCOMPARE(c.count, record.isEmpty() ? 0 : 1);
        QTEST(c.kept(in.toDouble()), "kept");
    }

    void firstValueWins() // later records of a code are written and counted, not kept
    {
        Context c;
        NETFILE_STRING_Func(9, 0, lv("first"), c.p);
        NETFILE_DOLLAR_VALUE_Func(9, 50.0, c.p);
        QCOMPARE(S(c.out) + c.kept(0) + S::number(c.count),
                 Earlier + L("first", 9) + L("50", 9) + "9:Tfirst2");
    }
};

QTEST_GUILESS_MAIN(tst_Netfile)
#include "tst_netfile.moc"
