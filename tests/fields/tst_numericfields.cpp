#include "cfloatfield.h"
#include "cintfield.h"
#include "mydatastream.h"

#include <QBuffer>
#include <QTest>

#include <climits>
#include <memory>

// QFETCH as an expression, so a column can be used where it is needed.
#define FETCH(Type, name) (*static_cast<Type*>(QTest::qData(#name, ::qMetaTypeId<Type>())))

using F = std::shared_ptr<CFloatField>;
Q_DECLARE_METATYPE(F)

namespace {

template<typename... T, typename... N> void columns(N... n)
{
    (QTest::addColumn<T>(n), ...);
}

QString text(CField& field)
{
    CString out;
    field.toString(out);
    return out;
}

// Stores into empty bytes, otherwise loads from them; returns the bytes moved.
qint64 serialize(CField& field, unsigned int version, QByteArray& bytes)
{
    QBuffer buffer(&bytes);
    buffer.open(bytes.isEmpty() ? QIODevice::WriteOnly : QIODevice::ReadOnly);
    MyDataStream stream(&buffer);
    field.Serialize(version, stream);
    return buffer.pos();
}

const double NaN = qQNaN();
constexpr uint NoEnd = 0xfffffff;

} // namespace

class tst_NumericFields : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { CFloatField::p_for_t2wave = false; }

    void constructAndValidate_data()
    {
        // flags: clamp, allowNegative, inverse, decimals, attr, version.
        columns<F, QString, double>("field", "flags", "validated");
        QTest::newRow("clamps a negative") << F(new CFloatField(-5.0)) << "1 0 0 2 0 65536" << 0.0;
        QTest::newRow("allowNegative keeps it")
            << F(new CFloatField(-5.0, 0, true, 65600)) << "1 1 0 2 0 65600" << -5.0;
        QTest::newRow("inverse print, clamp off keeps it")
            << F(new CFloatFieldInversePrint(false, -5.0, 9)) << "0 0 1 2 0 65536" << -5.0;
        QTest::newRow("percent: version argument ignored; above 100 becomes 100")
            << F(new CPercentField(150.0, 6, false, 70000)) << "0 0 0 4 1 65536" << 100.0;
        QTest::newRow("percent: below 0 becomes 0 even when negatives are allowed")
            << F(new CPercentField(-1.0, 0, true)) << "0 1 0 4 1 65536" << 0.0;
    }
    void constructAndValidate()
    {
        CFloatField& f = *FETCH(F, field);
        QCOMPARE(QStringLiteral("%1 %2 %3 %4 %5 %6")
                     .arg(f.m_bClampNegative)
                     .arg(f.m_bAllowNegative)
                     .arg(f.m_bInversePrint)
                     .arg(f.m_nDecimalsToSave)
                     .arg(uint(f.m_attr))
                     .arg(f.m_version),
                 FETCH(QString, flags));
        f.ValidateAndCorrect();
        QCOMPARE(f.m_value, FETCH(double, validated));
    }

    void roundFloatAtDecision_data()
    {
        columns<double, int, double>("in", "decimals", "out");
        QTest::newRow("binary 2.675 still rounds up") << 2.675 << 2 << 2.68;
        QTest::newRow("millions take no part in the scaling") << 1234567.125 << 2 << 1234567.13;
        QTest::newRow("positive just under a half rounds up") << 2.674999 << 2 << 2.68;
        QTest::newRow("negative just under a half does not") << -2.674999 << 2 << -2.67;
        QTest::newRow("3 decimals round to four") << 1.234567 << 3 << 1.2346;
        QTest::newRow("5 decimals scale by 100000") << 1.2345678 << 5 << 1.23457;
        QTest::newRow("whole: beyond 64 bits is not cast") << 1e300 << 0 << 1e300;
        QTest::newRow("whole: NaN is not cast") << NaN << 0 << NaN;
    }
    void roundFloatAtDecision()
    {
        QCOMPARE(RoundFloatAtDecision(FETCH(double, in), FETCH(int, decimals)), FETCH(double, out));
    }

    void roundedAssignment_data()
    {
        columns<F, bool, double, double, QString>("field", "t2wave", "in", "held", "text");
        QTest::newRow("amount to cents") << F(new CFloatField) << false << 2.345 << 2.35 << "2.35";
        QTest::newRow("t2wave: whole") << F(new CFloatField) << true << 2.345 << 2.0 << "2.00";
        QTest::newRow("t2wave: negative half")
            << F(new CFloatField) << true << -2.5 << -3.0 << "-3.00";
        QTest::newRow("inverse print follows t2wave")
            << F(new CFloatFieldInversePrint(true, 0.0, 0)) << true << 7.6 << 8.0 << "8.00";
        QTest::newRow("decimal field rounds to cents, prints four")
            << F(new CDecimalFloatField(4, 0.0, 0)) << false << 1.23456 << 1.23 << "1.2300";
        QTest::newRow("int float rounds whole without t2wave")
            << F(new CIntFloatField) << false << 2.5 << 3.0 << "3";
        QTest::newRow("percent rounds to four despite t2wave")
            << F(new CPercentField) << true << 12.345678 << 12.3457 << "12.3457";
    }
    void roundedAssignment()
    {
        CFloatField& field = *FETCH(F, field);
        CFloatField::p_for_t2wave = FETCH(bool, t2wave);
        field = FETCH(double, in); // virtual: each class rounds its own way
        QCOMPARE(field.m_value, FETCH(double, held));
        QCOMPARE(text(field), FETCH(QString, text));
    }

    void readFromString_data()
    {
        columns<QString, double, int>("in", "amount", "integer");
        QTest::newRow("thousands separators dropped") << "1,234.56" << 1234.56 << 0;
        QTest::newRow("no clamping or rounding on read") << "-5.678" << -5.678 << 0;
        QTest::newRow("just past int is no integer") << "2147483648" << 2147483648.0 << 0;
        QTest::newRow("exponent") << "1.5e3" << 1500.0 << 0;
        QTest::newRow("leading plus") << "+12" << 12.0 << 12;
        QTest::newRow("trailing letters are no number") << "12.5abc" << 0.0 << 0;
    }
    void readFromString()
    {
        CFloatField amount(99.0);
        CIntField integer(99);
        amount.readFromString(CString(FETCH(QString, in)));
        integer.readFromString(CString(FETCH(QString, in)));
        QCOMPARE(amount.m_value, FETCH(double, amount));
        QCOMPARE(integer.m_value, FETCH(int, integer));
    }

    void versionGate_data()
    {
        // value: what an amount holding 5 holds after reading the double 0.1.
        columns<uint, uint, uint, bool, double>("from", "to", "version", "takesPart", "value");
        QTest::newRow("before the first version") << 65536u << NoEnd << 65535u << false << 5.0;
        QTest::newRow("past the no-end version") << 65536u << NoEnd << NoEnd + 1 << false << 5.0;
        QTest::newRow("single version: inclusive") << 70000u << 70000u << 70000u << true << 0.1;
        QTest::newRow("65713 narrows to single precision, still 8 bytes")
            << 65536u << NoEnd << 65713u << true << double(float(0.1));
        QTest::newRow("65714 reads double precision") << 65536u << NoEnd << 65714u << true << 0.1;
    }
    void versionGate()
    {
        QFETCH(uint, version);
        QFETCH(bool, takesPart);
        CIntFieldNotused integer(FETCH(uint, from), FETCH(uint, to));
        CFloatField amount(int(integer.m_version), int(integer.m_versionEnd));
        amount.m_value = 5.0;
        QByteArray stored, waiting = QByteArray::fromHex("9a9999999999b93f"); // 0.1
        serialize(integer, version, stored);
        QCOMPARE(stored, takesPart ? QByteArray(4, '\xff') : QByteArray());
        QCOMPARE(serialize(amount, version, waiting), takesPart ? 8 : 0);
        QCOMPARE(amount.m_value, FETCH(double, value));
    }

    void wholeNumbersAndDivisors_data()
    {
        // truncateToNearest(v, 100), getIntVal(false), getIntVal(true); |v| < 0.009 is no divisor.
        columns<double, double, int, int, bool>("v", "hundreds", "truncated", "rounded", "divisor");
        QTest::newRow("toward zero, negative") << -1234.9 << -1200.0 << -1234 << -1235 << true;
        QTest::newRow("below 0.009 is no divisor") << 0.005 << 0.0 << 0 << 0 << false;
        QTest::newRow("the magnitude counts, not the sign") << -0.005 << 0.0 << 0 << 0 << false;
        QTest::newRow("exactly 0.009 divides") << 0.009 << 0.0 << 0 << 0 << true;
        QTest::newRow("NaN: nothing is cast") << NaN << NaN << 0 << 0 << true;
        QTest::newRow("beyond int and 64 bits") << 1e20 << 1e20 << INT_MAX << INT_MAX << true;
        QTest::newRow("below int saturates") << -1e20 << -1e20 << INT_MIN << INT_MIN << true;
    }
    void wholeNumbersAndDivisors()
    {
        const double v = FETCH(double, v);
        double hundreds = v, unitZero = v;
        truncateToNearest(hundreds, 100);
        truncateToNearest(unitZero, 0); // would divide by zero: left alone
        QCOMPARE(hundreds, FETCH(double, hundreds));
        QCOMPARE(unitZero, v);
        QCOMPARE(CFloatField(v).getIntVal(false), FETCH(int, truncated));
        QCOMPARE(CFloatField(v).getIntVal(true), FETCH(int, rounded));
        QCOMPARE(div(10.0, v, -1.0), FETCH(bool, divisor) ? 10.0 / v : -1.0);
        QCOMPARE(GetOneIfZero(v), FETCH(bool, divisor) ? v : 1.0);
    }

    void savedText_data()
    {
        columns<QString, QString, QString>("name", "printName", "saved");
        QTest::newRow("no print name; UTF-8 name") << "fld_é"
                                                   << ""
                                                   << "<f n=\"fld_é\">-42</f>";
        QTest::newRow("print name: three placeholders; NotUsed is saved")
            << "fld_NotUsed"
            << "Line 5"
            << "<f n=\"fld_NotUsed\" p=\"Line 5\">-42</f>";
        QTest::newRow("notused beats a print name; out untouched") << "notused"
                                                                   << "p"
                                                                   << "kept";
        QTest::newRow("a marker in the name is read by the value's pass")
            << "fld_%2"
            << ""
            << "<f n=\"fld_-42\">-42</f>";
    }
    void savedText()
    {
        QFETCH(QString, name);
        QFETCH(QString, saved);
        CIntField field(-42);
        field.m_name = name.toStdString();
        field.m_printName = FETCH(QString, printName).toStdString();
        CString archive("kept"), pdf("kept");
        const int result = saved == "kept" ? -1 : 0;
        QCOMPARE(field.writeToString(archive), result);
        QCOMPARE(field.writeToXmlForPdf(pdf), result);
        QCOMPARE(QString(archive), saved);
        QCOMPARE(QString(pdf),
                 result ? saved : "<f><c>" + name.replace("%2", "-42") + "</c><v>-42</v></f>");
    }

    void printsExactTiesAwayFromZero()
    {
        CFloatField amount(60486059.625);
        CString text;
        amount.toString(text);
        QCOMPARE(text, CString("60486059.63"));
        amount.m_value = -0.125;
        amount.toString(text);
        QCOMPARE(text, CString("-0.13"));
    }

    void debugOutput()
    {
        CFloatField field(12.5, 5);
        QString out;
        QDebug(&out) << field << "next"; // automatic spaces are back on after the field
        QCOMPARE(out, QStringLiteral("FF(id: 5, value: \"12.50\") next "));
    }
};

QTEST_GUILESS_MAIN(tst_NumericFields)
#include "tst_numericfields.moc"
