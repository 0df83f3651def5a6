#include "cfloatfield.h"
#include "cintfield.h"
#include "mydatastream.h"
#include "streambytes.h"

#include <QTest>

#include <climits>
#include <memory>

using Amount = std::shared_ptr<CFloatField>;
using Field = std::shared_ptr<CField>;
Q_DECLARE_METATYPE(Amount)
Q_DECLARE_METATYPE(Field)

namespace {

constexpr uint NoEnd = 0xfffffff;

// Exact, so that a cent is seen at any magnitude (QCOMPARE on doubles is relative).
QString exactly(double v)
{
    return QString::number(v, 'g', 17);
}

QByteArray doubleBytes(double v)
{
    return storeBytes([v](MyDataStream& stream) { stream << v; });
}

} // namespace

class tst_NumericFields : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { CFloatField::p_for_t2wave = false; }

    void roundFloatAtDecision_data();
    void roundFloatAtDecision();
    void roundedAssignment_data();
    void roundedAssignment();
    void fieldCopyIsNotRounded();
    void amountText_data();
    void amountText();
    void amountTolerance_data();
    void amountTolerance();
    void validateAndCorrect_data();
    void validateAndCorrect();
    void percentFieldIgnoresItsVersion();
    void amountFromText_data();
    void amountFromText();
    void integerFromText_data();
    void integerFromText();
    void versionRange_data();
    void versionRange();
    void singlePrecisionArchives_data();
    void singlePrecisionArchives();
    void getIntVal_data();
    void getIntVal();
    void truncateToNearest_data();
    void truncateToNearest();
    void smallDivisors_data();
    void smallDivisors();
    void savedText_data();
    void savedText();
    void debugOutput();
};

void tst_NumericFields::roundFloatAtDecision_data()
{
    QTest::addColumn<double>("in");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<double>("out");
    QTest::newRow("2.675 rounds up") << 2.675 << 2 << 2.68;
    QTest::newRow("positive: 0.49995 of a cent rounds up") << 2.6749995 << 2 << 2.68;
    QTest::newRow("positive: 0.49985 of a cent does not") << 2.6749985 << 2 << 2.67;
    QTest::newRow("negative: 0.49995 of a cent does not") << -2.6749995 << 2 << -2.67;
    QTest::newRow("negative: 0.50005 of a cent rounds away") << -2.6750005 << 2 << -2.68;
    QTest::newRow("the whole part takes no part in the scaling") << 1234567.125 << 2 << 1234567.13;
    QTest::newRow("at 1.7e10 the split keeps the sub-cent digits")
        << 17311614871.044998 << 2 << 17311614871.04;
    QTest::newRow("0: whole, half rounds up") << 2.5 << 0 << 3.0;
    QTest::newRow("0: just under a half does not") << 2.4999 << 0 << 2.0;
    QTest::newRow("0: negative half rounds away") << -2.5 << 0 << -3.0;
    QTest::newRow("0: negative just under a half does not") << -2.4999 << 0 << -2.0;
    QTest::newRow("1 rounds to four") << 1.234567 << 1 << 1.2346;
    QTest::newRow("3 rounds to four") << 1.234567 << 3 << 1.2346;
    QTest::newRow("4: 0.49995 of a unit rounds up") << 1.234549995 << 4 << 1.2346;
    QTest::newRow("4: 0.4985 of a unit does not") << 1.23454985 << 4 << 1.2345;
    QTest::newRow("5 rounds to five") << 1.2345678 << 5 << 1.23457;
    QTest::newRow("6 rounds to six") << 1.2345678 << 6 << 1.234568;
    QTest::newRow("7 rounds to four") << 1.2345678 << 7 << 1.2346;
    QTest::newRow("0: beyond 64 bits is not cast") << 1e300 << 0 << 1e300;
    QTest::newRow("0: NaN is not cast") << qQNaN() << 0 << qQNaN();
}

void tst_NumericFields::roundFloatAtDecision()
{
    QFETCH(double, in);
    QFETCH(int, decimals);
    QFETCH(double, out);
    QCOMPARE(exactly(RoundFloatAtDecision(in, decimals)), exactly(out));
}

void tst_NumericFields::roundedAssignment_data()
{
    QTest::addColumn<Amount>("field");
    QTest::addColumn<bool>("t2wave");
    QTest::addColumn<double>("in");
    QTest::addColumn<double>("held");
    QTest::newRow("amount: to cents") << Amount(new CFloatField) << false << 2.345 << 2.35;
    QTest::newRow("amount, t2wave: whole") << Amount(new CFloatField) << true << 2.345 << 2.0;
    QTest::newRow("amount, t2wave: half up") << Amount(new CFloatField) << true << 2.5 << 3.0;
    QTest::newRow("amount, t2wave: negative half away")
        << Amount(new CFloatField) << true << -2.5 << -3.0;
    QTest::newRow("amount, t2wave: 0 stays") << Amount(new CFloatField) << true << 0.0 << 0.0;
    QTest::newRow("inverse print follows t2wave")
        << Amount(new CFloatFieldInversePrint(true, 0.0, 0)) << true << 7.6 << 8.0;
    QTest::newRow("decimal field: to cents, whatever it prints")
        << Amount(new CDecimalFloatField(4, 0.0, 0)) << false << 1.23456 << 1.23;
    QTest::newRow("decimal field follows t2wave")
        << Amount(new CDecimalFloatField(4, 0.0, 0)) << true << 1.6 << 2.0;
    QTest::newRow("int float: whole without t2wave")
        << Amount(new CIntFloatField) << false << 2.5 << 3.0;
    QTest::newRow("percent: four decimals")
        << Amount(new CPercentField) << false << 12.345678 << 12.3457;
    QTest::newRow("percent: four decimals despite t2wave")
        << Amount(new CPercentField) << true << 12.345678 << 12.3457;
}

void tst_NumericFields::roundedAssignment()
{
    QFETCH(Amount, field);
    QFETCH(bool, t2wave);
    QFETCH(double, in);
    CFloatField::p_for_t2wave = t2wave;
    *field = in; // virtual: each class rounds its own way
    QTEST(field->m_value, "held");
}

void tst_NumericFields::fieldCopyIsNotRounded()
{
    CFloatField source(2.3456, 0), target(0.0, 0);
    target = source;
    QCOMPARE(target.m_value, 2.3456);
}

void tst_NumericFields::amountText_data()
{
    QTest::addColumn<Amount>("field");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("amount: two decimals, no separator")
        << Amount(new CFloatField) << 1234567.5 << "1234567.50";
    QTest::newRow("amount: a minus sign") << Amount(new CFloatField) << -5.0 << "-5.00";
    QTest::newRow("amount: an exact tie prints away from zero")
        << Amount(new CFloatField) << 60486059.625 << "60486059.63";
    QTest::newRow("amount: a negative tie too") << Amount(new CFloatField) << -0.125 << "-0.13";
    QTest::newRow("percent: four decimals") << Amount(new CPercentField) << 12.5 << "12.5000";
    QTest::newRow("decimal field: its own count")
        << Amount(new CDecimalFloatField(3, 0.0, 0)) << 1.5 << "1.500";
    QTest::newRow("int float: none") << Amount(new CIntFloatField) << 2.6 << "3";
}

void tst_NumericFields::amountText()
{
    QFETCH(Amount, field);
    QFETCH(double, value);
    field->m_value = value;
    CString out;
    QCOMPARE(field->toString(out), 0);
    QTEST(QString(out), "text");
}

void tst_NumericFields::amountTolerance_data()
{
    QTest::addColumn<double>("a");
    QTest::addColumn<double>("b");
    QTest::addColumn<bool>("differ");
    QTest::newRow("0.008 apart: equal") << 10.0 << 10.008 << false;
    QTest::newRow("0.009 apart at 10: different") << 10.0 << 10.009 << true;
    QTest::newRow("just under 0.009 apart: equal") << 0.0 << 0.0089999 << false;
    QTest::newRow("exactly 0.009 apart: different") << 0.0 << 0.009 << true;
    QTest::newRow("exactly 0.009 below: different") << 0.0 << -0.009 << true;
    QTest::newRow("two NaN: equal") << qQNaN() << qQNaN() << false;
    QTest::newRow("NaN against 0: different") << qQNaN() << 0.0 << true;
    QTest::newRow("0 against NaN: different") << 0.0 << qQNaN() << true;
}

void tst_NumericFields::amountTolerance()
{
    QFETCH(double, a);
    QFETCH(double, b);
    CFloatField fa(a, 0), fb(b, 0);
    QTEST(fa != fb, "differ");
}

void tst_NumericFields::validateAndCorrect_data()
{
    QTest::addColumn<Amount>("field");
    QTest::addColumn<double>("validated");
    QTest::newRow("a negative amount clamps") << Amount(new CFloatField(-0.01)) << 0.0;
    QTest::newRow("allowNegative keeps it") << Amount(new CFloatField(-5.0, 0, true)) << -5.0;
    QTest::newRow("clampNegative off keeps it")
        << Amount(new CFloatField(false, -5.0, 0, false, FIELD_ATTR_NONE, 0, 65536)) << -5.0;
    QTest::newRow("a positive amount stays") << Amount(new CFloatField(5.0)) << 5.0;
    QTest::newRow("percent: 100 stays") << Amount(new CPercentField(100.0)) << 100.0;
    QTest::newRow("percent: just above 100 becomes 100")
        << Amount(new CPercentField(100.01)) << 100.0;
    QTest::newRow("percent: 150 becomes 100") << Amount(new CPercentField(150.0)) << 100.0;
    // This constructor sets clampNegative false: the percent rule ignores both flags.
    QTest::newRow("percent: below 0 becomes 0 whatever the flags")
        << Amount(new CPercentField(-0.01, 0, true)) << 0.0;
}

void tst_NumericFields::validateAndCorrect()
{
    QFETCH(Amount, field);
    QCOMPARE(field->ValidateAndCorrect(), 0);
    QTEST(field->m_value, "validated");
}

void tst_NumericFields::percentFieldIgnoresItsVersion()
{
    CPercentField percent(1.0, 6, false, 70000);
    QCOMPARE(percent.m_version, 65536u);
    QCOMPARE(percent.m_attr, FIELD_ATTR_KEEP_ON_ROLLOVER);
}

void tst_NumericFields::amountFromText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("amount");
    QTest::newRow("thousands separators dropped") << "1,234.56" << 1234.56;
    QTest::newRow("no clamping or rounding") << "-5.678" << -5.678;
    QTest::newRow("an exponent") << "1.5e3" << 1500.0;
    QTest::newRow("a leading plus") << "+12" << 12.0;
    QTest::newRow("beyond int is still an amount") << "2147483648" << 2147483648.0;
    QTest::newRow("trailing letters: no number") << "12.5abc" << 0.0;
    QTest::newRow("letters: no number") << "abc" << 0.0;
    QTest::newRow("empty: no number") << "" << 0.0;
}

void tst_NumericFields::amountFromText()
{
    QFETCH(QString, text);
    CFloatField amount(99.0);
    QCOMPARE(amount.readFromString(CString(text)), 0);
    QTEST(amount.m_value, "amount");
}

void tst_NumericFields::integerFromText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("value");
    QTest::newRow("a leading plus") << "+12" << 12;
    QTest::newRow("a minus sign") << "-7" << -7;
    QTest::newRow("the largest int") << "2147483647" << INT_MAX;
    QTest::newRow("one past the largest int: 0") << "2147483648" << 0;
    QTest::newRow("the smallest int") << "-2147483648" << INT_MIN;
    QTest::newRow("one below the smallest int: 0") << "-2147483649" << 0;
    QTest::newRow("digits followed by a letter: 0") << "12a" << 0;
    QTest::newRow("a decimal point: 0") << "1.5" << 0;
    QTest::newRow("empty: 0") << "" << 0;
}

void tst_NumericFields::integerFromText()
{
    QFETCH(QString, text);
    CIntField integer(99);
    QCOMPARE(integer.readFromString(CString(text)), 0);
    QTEST(integer.m_value, "value");
}

void tst_NumericFields::versionRange_data()
{
    // Each field holds 5 and finds the bytes of 7 waiting when it loads.
    QTest::addColumn<Field>("field");
    QTest::addColumn<uint>("version");
    QTest::addColumn<int>("bytes");
    const auto integer = [](uint from, uint to) { return Field(new CIntFieldNotused(from, to)); };
    const auto amount
        = [](uint from, uint to) { return Field(new CFloatField(int(from), int(to))); };
    QTest::newRow("int: one below the first version") << integer(65536, NoEnd) << 65535u << 0;
    QTest::newRow("int: the first version") << integer(65536, NoEnd) << 65536u << 4;
    QTest::newRow("int: the no-end version") << integer(65536, NoEnd) << NoEnd << 4;
    QTest::newRow("int: one past the no-end version") << integer(65536, NoEnd) << NoEnd + 1 << 0;
    QTest::newRow("amount: one below a single version") << amount(70000, 70000) << 69999u << 0;
    QTest::newRow("amount: the single version") << amount(70000, 70000) << 70000u << 8;
    QTest::newRow("amount: one past a single version") << amount(70000, 70000) << 70001u << 0;
}

void tst_NumericFields::versionRange()
{
    QFETCH(Field, field);
    QFETCH(uint, version);
    QFETCH(int, bytes);
    const bool isInt = field->getFieldType() == FIELD_TYPE_INT;
    const auto set = [&](int v) {
        if (isInt)
            static_cast<CIntField&>(*field).m_value = v;
        else
            static_cast<CFloatField&>(*field).m_value = v;
    };
    const auto value = [&] {
        return isInt ? double(static_cast<CIntField&>(*field).m_value)
                     : static_cast<CFloatField&>(*field).m_value;
    };
    set(5);
    const QByteArray stored
        = storeBytes([&](MyDataStream& stream) { field->Serialize(version, stream); });
    QCOMPARE(stored.size(), bytes);
    const QByteArray seven = isInt ? QByteArray::fromHex("07000000") : doubleBytes(7.0);
    QCOMPARE(loadBytes(seven, [&](MyDataStream& stream) { field->Serialize(version, stream); }),
             qint64(bytes));
    QCOMPARE(value(), bytes ? 7.0 : 5.0);
}

void tst_NumericFields::singlePrecisionArchives_data()
{
    QTest::addColumn<uint>("version");
    QTest::addColumn<double>("loaded");
    QTest::newRow("the first version narrows to single precision") << 65536u << double(0.1f);
    QTest::newRow("65713 still narrows") << 65713u << double(0.1f);
    QTest::newRow("65714 reads double precision") << 65714u << 0.1;
}

void tst_NumericFields::singlePrecisionArchives()
{
    QFETCH(uint, version);
    CFloatField amount(65536, int(NoEnd));
    amount.m_value = 0.1;
    // Storing writes a double whatever the version; loading takes 8 bytes either way.
    const QByteArray stored
        = storeBytes([&](MyDataStream& stream) { amount.Serialize(version, stream); });
    QCOMPARE(stored, doubleBytes(0.1));
    amount.m_value = 5.0;
    QCOMPARE(loadBytes(stored, [&](MyDataStream& stream) { amount.Serialize(version, stream); }),
             qint64(8));
    QFETCH(double, loaded);
    QCOMPARE(exactly(amount.m_value), exactly(loaded));
}

void tst_NumericFields::getIntVal_data()
{
    QTest::addColumn<double>("v");
    QTest::addColumn<bool>("round");
    QTest::addColumn<int>("expected");
    QTest::newRow("truncated toward zero") << 2.9 << false << 2;
    QTest::newRow("a negative truncated toward zero") << -2.9 << false << -2;
    QTest::newRow("rounded: a half goes up") << 2.5 << true << 3;
    QTest::newRow("rounded: just under a half does not") << 2.4999 << true << 2;
    QTest::newRow("rounded: a negative half goes away") << -2.5 << true << -3;
    QTest::newRow("rounded: a negative just under a half does not") << -2.4999 << true << -2;
    QTest::newRow("NaN is 0") << qQNaN() << true << 0;
    QTest::newRow("beyond int saturates") << 1e20 << true << INT_MAX;
    QTest::newRow("below int saturates") << -1e20 << false << INT_MIN;
}

void tst_NumericFields::getIntVal()
{
    QFETCH(double, v);
    QFETCH(bool, round);
    QTEST(CFloatField(v).getIntVal(round), "expected");
}

void tst_NumericFields::truncateToNearest_data()
{
    QTest::addColumn<double>("v");
    QTest::addColumn<int>("unit");
    QTest::addColumn<double>("expected");
    QTest::newRow("toward zero") << 1234.9 << 100 << 1200.0;
    QTest::newRow("a negative toward zero") << -1234.9 << 100 << -1200.0;
    QTest::newRow("a multiple stays") << 1200.0 << 100 << 1200.0;
    QTest::newRow("one short of a multiple") << 1199.99 << 100 << 1100.0;
    QTest::newRow("a unit of 0 leaves the value") << 1234.9 << 0 << 1234.9;
    QTest::newRow("NaN stays") << qQNaN() << 100 << qQNaN();
    QTest::newRow("beyond 64 bits stays") << 1e20 << 100 << 1e20;
}

void tst_NumericFields::truncateToNearest()
{
    QFETCH(double, v);
    QFETCH(int, unit);
    ::truncateToNearest(v, unit);
    QTEST(v, "expected");
}

void tst_NumericFields::smallDivisors_data()
{
    // div(10, b, -1) and GetOneIfZero(b): a magnitude below 0.009 is no divisor.
    QTest::addColumn<double>("b");
    QTest::addColumn<double>("quotient");
    QTest::addColumn<double>("oneIfZero");
    QTest::newRow("0 is no divisor") << 0.0 << -1.0 << 1.0;
    QTest::newRow("0.005 is no divisor") << 0.005 << -1.0 << 1.0;
    QTest::newRow("just under 0.009 is no divisor") << 0.0089999 << -1.0 << 1.0;
    QTest::newRow("the magnitude counts, not the sign") << -0.0089999 << -1.0 << 1.0;
    QTest::newRow("exactly 0.009 divides") << 0.009 << 10 / 0.009 << 0.009;
    QTest::newRow("exactly -0.009 divides") << -0.009 << 10 / -0.009 << -0.009;
    QTest::newRow("0.01 divides") << 0.01 << 1000.0 << 0.01;
}

void tst_NumericFields::smallDivisors()
{
    QFETCH(double, b);
    QTEST(div(10.0, b, -1.0), "quotient");
    QTEST(GetOneIfZero(b), "oneIfZero");
}

void tst_NumericFields::savedText_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("printName");
    QTest::addColumn<int>("result");
    QTest::addColumn<QString>("archive");
    QTest::addColumn<QString>("pdf");
    QTest::newRow("no print name: two placeholders, UTF-8 name")
        << "fld_é"
        << "" << 0 << "<f n=\"fld_é\">-42</f>"
        << "<f><c>fld_é</c><v>-42</v></f>";
    QTest::newRow("a print name: three placeholders; print form without it")
        << "fld_x"
        << "Line 5" << 0 << "<f n=\"fld_x\" p=\"Line 5\">-42</f>"
        << "<f><c>fld_x</c><v>-42</v></f>";
    QTest::newRow("NotUsed is saved") << "fld_NotUsed"
                                      << "" << 0 << "<f n=\"fld_NotUsed\">-42</f>"
                                      << "<f><c>fld_NotUsed</c><v>-42</v></f>";
    QTest::newRow("notuse, six letters, is saved") << "notuse"
                                                   << "" << 0 << "<f n=\"notuse\">-42</f>"
                                                   << "<f><c>notuse</c><v>-42</v></f>";
    QTest::newRow("notused: not saved, out untouched") << "notused"
                                                       << "" << -1 << "kept"
                                                       << "kept";
    QTest::newRow("notused within the name beats a print name") << "fld_notused_1"
                                                                << "p" << -1 << "kept"
                                                                << "kept";
    QTest::newRow("a marker in the name is read by the value's pass")
        << "fld_%2"
        << "" << 0 << "<f n=\"fld_-42\">-42</f>"
        << "<f><c>fld_-42</c><v>-42</v></f>";
}

void tst_NumericFields::savedText()
{
    QFETCH(QString, name);
    QFETCH(QString, printName);
    QFETCH(int, result);
    CIntField field(-42);
    field.m_name = name.toStdString();
    field.m_printName = printName.toStdString();
    CString archive("kept"), pdf("kept");
    QCOMPARE(field.writeToString(archive), result);
    QCOMPARE(field.writeToXmlForPdf(pdf), result);
    QTEST(QString(archive), "archive");
    QTEST(QString(pdf), "pdf");
}

void tst_NumericFields::debugOutput()
{
    CFloatField field(12.5, 5);
    QString out;
    QDebug(&out) << field << "next"; // automatic spaces are back on after the field
    QCOMPARE(out, QStringLiteral("FF(id: 5, value: \"12.50\") next "));
}

QTEST_GUILESS_MAIN(tst_NumericFields)
#include "tst_numericfields.moc"
