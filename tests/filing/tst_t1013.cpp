#include "cmemoryblock.h"

#include <QtTest>

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
    void records_data();
    void records();
    void recordsRunTogether();
};

void tst_T1013::records_data()
{
    QTest::addColumn<int>("form"); // 0 text, 1 int, 2 char*, 3 repeated text, 4 repeated int
    QTest::addColumn<int>("field");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("number");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("int value: field padded with spaces to three")
        << 1 << 7 << 0 << QStringLiteral("") << 1 << QByteArray("  71*");
    QTest::newRow("negative int value keeps its sign")
        << 1 << 7 << 0 << QStringLiteral("") << -5 << QByteArray("  7-5*");
    QTest::newRow("three-digit field fills the columns")
        << 0 << 123 << 0 << QStringLiteral("ABC") << 0 << QByteArray("123ABC*");
    QTest::newRow("width is a minimum")
        << 0 << 1234 << 0 << QStringLiteral("x") << 0 << QByteArray("1234x*");
    QTest::newRow("empty text still gives the record")
        << 0 << 5 << 0 << QStringLiteral("") << 0 << QByteArray("  5*");
    QTest::newRow("text is appended as UTF-8") << 0 << 10 << 0
                                               << QString::fromUtf8("Qu\xc3\xa9"
                                                                    "bec")
                                               << 0
                                               << QByteArray(" 10Qu\xc3\xa9"
                                                             "bec*");
    QTest::newRow("char* value read as Latin-1")
        << 2 << 10 << 0 << QString(QChar(0xe9)) << 0 << QByteArray(" 10\xc3\xa9*");
    QTest::newRow("repeated text record")
        << 3 << 12 << 3 << QStringLiteral("X") << 0 << QByteArray(" 12X+3*");
    QTest::newRow("repeated int record")
        << 4 << 12 << 10 << QStringLiteral("") << 250 << QByteArray(" 12250+10*");
    QTest::newRow("repeated with empty text")
        << 3 << 1 << 0 << QStringLiteral("") << 0 << QByteArray("  1+0*");
    QTest::newRow("marker in a value takes the index")
        << 3 << 12 << 3 << QStringLiteral("a%3") << 0 << QByteArray(" 12a3+3*");
    QTest::newRow("marker in a plain value is left alone")
        << 0 << 12 << 0 << QStringLiteral("a%3") << 0 << QByteArray(" 12a%3*");
    QTest::newRow("star is not escaped")
        << 0 << 1 << 0 << QStringLiteral("a*b") << 0 << QByteArray("  1a*b*");
}

void tst_T1013::records()
{
    QFETCH(int, form);
    QFETCH(int, field);
    QFETCH(int, index);
    QFETCH(QString, text);
    QFETCH(int, number);
    QFETCH(QByteArray, expected);

    CMemoryBlock block;
    CString value(text);
    const QByteArray latin1 = text.toLatin1();
    switch (form) {
    case 0:
        block.AppendT1013Field(field, value);
        break;
    case 1:
        block.AppendT1013Field(field, number);
        break;
    case 2:
        block.AppendT1013Field(field, latin1.constData());
        break;
    case 3:
        block.AppendT1013FieldRecord(field, index, value);
        break;
    case 4:
        block.AppendT1013FieldRecord(field, index, number);
        break;
    }
    QCOMPARE(content(block), expected);
}

void tst_T1013::recordsRunTogether()
{
    CMemoryBlock block;
    CString name("Smith");
    block.AppendT1013Field(1, name);
    block.AppendT1013Field(2, static_cast<char const*>(nullptr));
    block.AppendT1013FieldRecord(3, 1, 42);
    QCOMPARE(content(block), QByteArray("  1Smith*  2*  342+1*"));
}

QTEST_GUILESS_MAIN(tst_T1013)
#include "tst_t1013.moc"
