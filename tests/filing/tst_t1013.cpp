#include "cmemoryblock.h"

#include <QtTest>

#include <climits>

namespace {

QByteArray content(const CMemoryBlock& b)
{
    return QByteArray(b.GetData(), b.GetContentSize());
}

} // namespace

class tst_T1013 : public QObject
{
    Q_OBJECT

private slots:
    void fieldNumberColumns_data();
    void fieldNumberColumns();
    void textRecord_data();
    void textRecord();
    void numberRecord_data();
    void numberRecord();
    void latin1Record_data();
    void latin1Record();
    void repeatedTextRecord_data();
    void repeatedTextRecord();
    void repeatedNumberRecord_data();
    void repeatedNumberRecord();
    void recordsRunTogether();
};

// The field number is right-aligned in three columns, and three is a minimum.
void tst_T1013::fieldNumberColumns_data()
{
    QTest::addColumn<int>("field");
    QTest::addColumn<QByteArray>("plain");
    QTest::addColumn<QByteArray>("repeated");

    QTest::newRow("one digit, two spaces") << 1 << QByteArray("  1v*") << QByteArray("  1v+2*");
    QTest::newRow("largest one-digit number") << 9 << QByteArray("  9v*") << QByteArray("  9v+2*");
    QTest::newRow("smallest two-digit number, one space")
        << 10 << QByteArray(" 10v*") << QByteArray(" 10v+2*");
    QTest::newRow("largest two-digit number") << 99 << QByteArray(" 99v*") << QByteArray(" 99v+2*");
    QTest::newRow("smallest three-digit number fills the columns")
        << 100 << QByteArray("100v*") << QByteArray("100v+2*");
    QTest::newRow("largest number that fits the columns")
        << 999 << QByteArray("999v*") << QByteArray("999v+2*");
    QTest::newRow("four digits widen the record")
        << 1000 << QByteArray("1000v*") << QByteArray("1000v+2*");
    QTest::newRow("zero is padded like any number")
        << 0 << QByteArray("  0v*") << QByteArray("  0v+2*");
    QTest::newRow("the sign takes a column") << -10 << QByteArray("-10v*") << QByteArray("-10v+2*");
}

void tst_T1013::fieldNumberColumns()
{
    QFETCH(int, field);
    QFETCH(QByteArray, plain);
    QFETCH(QByteArray, repeated);

    CString value("v");
    CMemoryBlock plainBlock, repeatedBlock;
    plainBlock.AppendT1013Field(field, value);
    repeatedBlock.AppendT1013FieldRecord(field, 2, value);
    QCOMPARE(content(plainBlock), plain);
    QCOMPARE(content(repeatedBlock), repeated);
}

void tst_T1013::textRecord_data()
{
    QTest::addColumn<int>("field");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("record");

    QTest::newRow("text follows the field number") << 123 << "ABC" << QByteArray("123ABC*");
    QTest::newRow("empty text still gives the record") << 5 << "" << QByteArray("  5*");
    QTest::newRow("text is appended as UTF-8") << 10 << QStringLiteral("Qu\u00e9bec")
                                               << QByteArray(" 10Qu\xc3\xa9"
                                                             "bec*");
    QTest::newRow("a marker in a plain value is left alone")
        << 12 << "a%3" << QByteArray(" 12a%3*");
    QTest::newRow("a star is not escaped") << 1 << "a*b" << QByteArray("  1a*b*");
}

void tst_T1013::textRecord()
{
    QFETCH(int, field);
    QFETCH(QString, text);
    QFETCH(QByteArray, record);

    CString value(text);
    CMemoryBlock block;
    block.AppendT1013Field(field, value);
    QCOMPARE(content(block), record);
}

void tst_T1013::numberRecord_data()
{
    QTest::addColumn<int>("field");
    QTest::addColumn<int>("number");
    QTest::addColumn<QByteArray>("record");

    QTest::newRow("a one-digit value has no fill") << 7 << 1 << QByteArray("  71*");
    QTest::newRow("a negative value keeps its sign") << 7 << -5 << QByteArray("  7-5*");
    QTest::newRow("zero is written") << 7 << 0 << QByteArray("  70*");
    QTest::newRow("widest value") << 7 << INT_MIN << QByteArray("  7-2147483648*");
}

void tst_T1013::numberRecord()
{
    QFETCH(int, field);
    QFETCH(int, number);
    QFETCH(QByteArray, record);

    CMemoryBlock block;
    block.AppendT1013Field(field, number);
    QCOMPARE(content(block), record);
}

void tst_T1013::latin1Record_data()
{
    QTest::addColumn<QByteArray>("value"); // null: a null pointer
    QTest::addColumn<QByteArray>("record");

    QTest::newRow("read as Latin-1, appended as UTF-8")
        << QByteArray("\xe9t\xe9") << QByteArray(" 10\xc3\xa9t\xc3\xa9*");
    QTest::newRow("null pointer counts as empty text") << QByteArray() << QByteArray(" 10*");
}

void tst_T1013::latin1Record()
{
    QFETCH(QByteArray, value);
    QFETCH(QByteArray, record);

    CMemoryBlock block;
    block.AppendT1013Field(10, value.isNull() ? nullptr : value.constData());
    QCOMPARE(content(block), record);
}

void tst_T1013::repeatedTextRecord_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("record");

    QTest::newRow("index after the value and a plus") << 3 << "X" << QByteArray(" 12X+3*");
    QTest::newRow("index has no fill") << 10 << "X" << QByteArray(" 12X+10*");
    QTest::newRow("index 0 is written") << 0 << "X" << QByteArray(" 12X+0*");
    QTest::newRow("empty text still gives the record") << 4 << "" << QByteArray(" 12+4*");
    // The markers are filled in turn, so "%3" in the value takes the index.
    QTest::newRow("a marker in the value takes the index") << 3 << "a%3" << QByteArray(" 12a3+3*");
}

void tst_T1013::repeatedTextRecord()
{
    QFETCH(int, index);
    QFETCH(QString, text);
    QFETCH(QByteArray, record);

    CString value(text);
    CMemoryBlock block;
    block.AppendT1013FieldRecord(12, index, value);
    QCOMPARE(content(block), record);
}

void tst_T1013::repeatedNumberRecord_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("number");
    QTest::addColumn<QByteArray>("record");

    QTest::newRow("value and index, neither filled") << 10 << 250 << QByteArray(" 12250+10*");
    QTest::newRow("a negative value keeps its sign") << 1 << -7 << QByteArray(" 12-7+1*");
}

void tst_T1013::repeatedNumberRecord()
{
    QFETCH(int, index);
    QFETCH(int, number);
    QFETCH(QByteArray, record);

    CMemoryBlock block;
    block.AppendT1013FieldRecord(12, index, number);
    QCOMPARE(content(block), record);
}

// Records follow each other with nothing between them but their own stars.
void tst_T1013::recordsRunTogether()
{
    CMemoryBlock block;
    CString name("Smith");
    block.AppendT1013Field(1, name);
    block.AppendT1013Field(2, 0);
    block.AppendT1013FieldRecord(3, 1, 42);
    QCOMPARE(content(block), QByteArray("  1Smith*  20*  342+1*"));
}

QTEST_GUILESS_MAIN(tst_T1013)
#include "tst_t1013.moc"
