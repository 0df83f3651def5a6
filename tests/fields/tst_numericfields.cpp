#include "cfloatfield.h"
#include "cintfield.h"
#include "mydatastream.h"
#include "streambytes.h"

#include <QTest>

#include <climits>
#include <memory>

// A call on two numbers; the row picks it.
using Calc = double (*)(double a, double b);
// A call on an amount field given a number, giving the field's value or text.
using AmountOp = QString (*)(CFloatField& field, double v);
// A call on a field given a text.
using FieldOp = QString (*)(CField& field, QString in);
using Amount = std::shared_ptr<CFloatField>;
using Field = std::shared_ptr<CField>;
Q_DECLARE_METATYPE(Calc)
Q_DECLARE_METATYPE(AmountOp)
Q_DECLARE_METATYPE(FieldOp)
Q_DECLARE_METATYPE(Amount)
Q_DECLARE_METATYPE(Field)

namespace {

constexpr uint NoEnd = 0xfffffff;

QString text(CField& field)
{
    CString out;
    field.toString(out);
    return out;
}

// An amount to fifteen digits, an integer as it is.
QString value(CField& field)
{
    if (auto amount = dynamic_cast<CFloatField*>(&field))
        return QString::number(amount->m_value, 'g', 15);
    return QString::number(static_cast<CIntField&>(field).m_value);
}

} // namespace

class tst_NumericFields : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { CFloatField::p_for_t2wave = false; }

    void calcs_data()
    {
        QTest::addColumn<Calc>("calc");
        QTest::addColumn<double>("a");
        QTest::addColumn<double>("b");
        QTest::addColumn<double>("expected");
        const Calc round = [](double v, double n) { return RoundFloatAtDecision(v, int(n)); };
        const Calc intVal = [](double v, double r) { return double(CFloatField(v).getIntVal(r)); };
        const Calc trunc = [](double v, double unit) { return truncateToNearest(v, int(unit)), v; };
        const Calc quotient = [](double, double b) { return div(10.0, b, -1.0); };
        const Calc oneIfZero = [](double, double b) { return GetOneIfZero(b); };
        const Calc differ
            = [](double a, double b) { return double(CFloatField(a, 0) != CFloatField(b, 0)); };
        const double nan = qQNaN();
        QTest::newRow("0.49995 of a cent: up") << round << 2.6749995 << 2. << 2.68;
        QTest::newRow("0.49985 of a cent: down") << round << 2.6749985 << 2. << 2.67;
        QTest::newRow("negative, 0.49995: down") << round << -2.6749995 << 2. << -2.67;
        QTest::newRow("negative, 0.50005: away") << round << -2.6750005 << 2. << -2.68;
        QTest::newRow("1.7e10 keeps its sub-cents")
            << round << 17311614871.044998 << 2. << 17311614871.04;
        QTest::newRow("0: half up") << round << 2.5 << 0. << 3.;
        QTest::newRow("0: negative half away") << round << -2.5 << 0. << -3.;
        QTest::newRow("4: 0.49995 of a unit: up") << round << 1.234549995 << 4. << 1.2346;
        QTest::newRow("0: beyond 64 bits") << round << 1e300 << 0. << 1e300;
        QTest::newRow("0: NaN") << round << nan << 0. << nan;
        QTest::newRow("int: toward zero") << intVal << -2.9 << 0. << -2.;
        QTest::newRow("int: half up") << intVal << 2.5 << 1. << 3.;
        QTest::newRow("int: negative half away") << intVal << -2.5 << 1. << -3.;
        QTest::newRow("int: saturates above") << intVal << 1e20 << 1. << double(INT_MAX);
        QTest::newRow("int: saturates below") << intVal << -1e20 << 0. << double(INT_MIN);
        QTest::newRow("truncate toward zero") << trunc << -1234.9 << 100. << -1200.;
        QTest::newRow("truncate: unit 0") << trunc << 1234.9 << 0. << 1234.9;
        QTest::newRow("truncate: NaN") << trunc << nan << 100. << nan;
        QTest::newRow("truncate: beyond 64 bits") << trunc << 1e20 << 100. << 1e20;
        QTest::newRow("div: under 0.009") << quotient << 0. << 0.0089999 << -1.;
        QTest::newRow("div: 0.009 divides") << quotient << 0. << 0.009 << 10 / 0.009;
        QTest::newRow("div: -0.009 divides") << quotient << 0. << -0.009 << 10 / -0.009;
        QTest::newRow("one if under 0.009") << oneIfZero << 0. << 0.0089999 << 1.;
        QTest::newRow("one if: 0.009 stays") << oneIfZero << 0. << 0.009 << 0.009;
        QTest::newRow("under 0.009 apart: equal") << differ << 0. << 0.0089999 << 0.;
        QTest::newRow("0.009 apart: differ") << differ << 0. << 0.009 << 1.;
        QTest::newRow("0.009 below: differ") << differ << 0. << -0.009 << 1.;
        QTest::newRow("two NaN: equal") << differ << nan << nan << 0.;
        QTest::newRow("NaN and 0: differ") << differ << nan << 0. << 1.;
    }
    void calcs()
    {
        QFETCH(Calc, calc);
        QFETCH(double, a);
        QFETCH(double, b);
        QFETCH(double, expected);
        // Exact, so that a cent is seen at any magnitude (QCOMPARE on doubles is relative).
        QCOMPARE(QString::number(calc(a, b), 'g', 17), QString::number(expected, 'g', 17));
    }

    void amounts_data()
    {
        QTest::addColumn<Amount>("field");
        QTest::addColumn<bool>("t2wave");
        QTest::addColumn<AmountOp>("op");
        QTest::addColumn<double>("in");
        QTest::addColumn<QString>("expected");
        // Assignment is virtual: each class rounds its own way.
        const AmountOp assign
            = [](CFloatField& f, double v) { return f = v, QString::number(f.m_value, 'g', 12); };
        const AmountOp print = [](CFloatField& f, double v) { return f.m_value = v, text(f); };
        const AmountOp validate = [](CFloatField& f, double) {
            return f.ValidateAndCorrect(), QString::number(f.m_value);
        };
        const auto amount = [](double v = 0) { return Amount(new CFloatField(v)); };
        const auto percent = [](double v = 0) { return Amount(new CPercentField(v)); };
        const auto decimals = [](int n) { return Amount(new CDecimalFloatField(n, 0.0, 0)); };
        const auto intFloat = [] { return Amount(new CIntFloatField); };
        QTest::newRow("amount: cents") << amount() << false << assign << 2.345 << "2.35";
        QTest::newRow("amount, t2wave: whole") << amount() << true << assign << 2.5 << "3";
        QTest::newRow("decimals: cents") << decimals(4) << false << assign << 1.23456 << "1.23";
        QTest::newRow("int float: whole") << intFloat() << false << assign << 2.5 << "3";
        QTest::newRow("percent: despite t2wave")
            << percent() << true << assign << 12.345678 << "12.3457";
        QTest::newRow("text: a tie away")
            << amount() << false << print << 60486059.625 << "60486059.63";
        QTest::newRow("text: a negative tie") << amount() << false << print << -0.125 << "-0.13";
        QTest::newRow("text: int float") << intFloat() << false << print << 2.6 << "3";
        QTest::newRow("negative clamps") << amount(-0.01) << false << validate << 0. << "0";
        QTest::newRow("allowNegative keeps")
            << Amount(new CFloatField(-5.0, 0, true)) << false << validate << 0. << "-5";
        QTest::newRow("clampNegative off keeps")
            << Amount(new CFloatField(false, -5.0, 0, false, FIELD_ATTR_NONE, 0, 65536)) << false
            << validate << 0. << "-5";
        QTest::newRow("percent: 100 stays") << percent(100) << false << validate << 0. << "100";
        QTest::newRow("percent: above 100") << percent(100.01) << false << validate << 0. << "100";
        // This constructor sets clampNegative false: the percent rule ignores both flags.
        QTest::newRow("percent: below 0 whatever the flags")
            << Amount(new CPercentField(-0.01, 0, true)) << false << validate << 0. << "0";
    }
    void amounts()
    {
        QFETCH(Amount, field);
        QFETCH(bool, t2wave);
        QFETCH(AmountOp, op);
        QFETCH(double, in);
        CFloatField::p_for_t2wave = t2wave;
        QTEST(op(*field, in), "expected");
    }

    void fields_data()
    {
        QTest::addColumn<Field>("field");
        QTest::addColumn<QString>("in");
        QTest::addColumn<FieldOp>("op");
        QTest::addColumn<QString>("expected");
        const FieldOp read = [](CField& f, QString in) { return f.readFromString(in), value(f); };
        // The text is a version: the bytes stored at it.
        const FieldOp size = [](CField& f, QString in) {
            const uint version = in.toUInt(nullptr, 0);
            return QString::number(storeBytes([&](auto& s) { f.Serialize(version, s); }).size());
        };
        // 0.1 stored and loaded at the version: the bytes taken, then the value.
        const FieldOp narrow = [](CField& f, QString in) {
            const uint version = in.toUInt(nullptr, 0);
            static_cast<CFloatField&>(f).m_value = 0.1;
            const QByteArray bytes = storeBytes([&](auto& s) { f.Serialize(version, s); });
            const qint64 taken = loadBytes(bytes, [&](auto& s) { f.Serialize(version, s); });
            return QString::number(taken) + ' ' + value(f);
        };
        // The text is the name: the result, then the output.
        const FieldOp saved = [](CField& f, QString in) {
            f.m_name = in.toStdString();
            CString out("kept");
            const int result = f.writeToString(out);
            return QString("%1|%2").arg(result).arg(out);
        };
        const FieldOp pdf = [](CField& f, QString in) {
            f.m_name = in.toStdString();
            CString out("kept");
            const int result = f.writeToXmlForPdf(out);
            return QString("%1|%2").arg(result).arg(out);
        };
        const auto amount = [] { return Field(new CFloatField(99.0)); };
        const auto integer = [] { return Field(new CIntField(99)); };
        const auto intRange = [] { return Field(new CIntFieldNotused(65536, NoEnd)); };
        const auto amountAt = [] { return Field(new CFloatField(70000, 70000)); };
        const auto printed = [] {
            auto f = new CIntField(-42);
            f->m_printName = "Line 5";
            return Field(f);
        };
        QTest::newRow("amount: separators dropped") << amount() << "1,234.56" << read << "1234.56";
        QTest::newRow("amount: not clamped or rounded") << amount() << "-5.678" << read << "-5.678";
        QTest::newRow("amount: an exponent") << amount() << "1.5e3" << read << "1500";
        QTest::newRow("amount: a leading plus") << amount() << "+12" << read << "12";
        QTest::newRow("amount: trailing letters") << amount() << "12.5abc" << read << "0";
        QTest::newRow("int: the largest") << integer() << "2147483647" << read << "2147483647";
        QTest::newRow("int: one past it") << integer() << "2147483648" << read << "0";
        QTest::newRow("int: the smallest") << integer() << "-2147483648" << read << "-2147483648";
        QTest::newRow("int: one below it") << integer() << "-2147483649" << read << "0";
        QTest::newRow("int: one below the first") << intRange() << "65535" << size << "0";
        QTest::newRow("int: the first version") << intRange() << "65536" << size << "4";
        QTest::newRow("int: the no-end version") << intRange() << "0xfffffff" << size << "4";
        QTest::newRow("int: one past no-end") << intRange() << "0x10000000" << size << "0";
        QTest::newRow("amount: one below") << amountAt() << "69999" << size << "0";
        QTest::newRow("amount: its one version") << amountAt() << "70000" << size << "8";
        QTest::newRow("amount: one past") << amountAt() << "70001" << size << "0";
        // A double is stored whatever the version; up to 65713 it loads as single precision.
        QTest::newRow("65713 still narrows")
            << amount() << "65713" << narrow << "8 0.100000001490116";
        QTest::newRow("65714 reads a double") << amount() << "65714" << narrow << "8 0.1";
        QTest::newRow("a print name")
            << printed() << "fld_x" << saved << "0|<f n=\"fld_x\" p=\"Line 5\">-42</f>";
        QTest::newRow("pdf: no print name")
            << printed() << "fld_x" << pdf << "0|<f><c>fld_x</c><v>-42</v></f>";
        QTest::newRow("notused: not saved") << printed() << "fld_notused" << saved << "-1|kept";
        QTest::newRow("a marker in the name")
            << integer() << "fld_%2" << saved << "0|<f n=\"fld_99\">99</f>";
    }
    void fields()
    {
        QFETCH(Field, field);
        QFETCH(QString, in);
        QFETCH(FieldOp, op);
        QTEST(op(*field, in), "expected");
    }
};

QTEST_GUILESS_MAIN(tst_NumericFields)
#include "tst_numericfields.moc"
