#include "cmemoryblock.h"

#include <QtTest>

enum class Form { Text, Latin1, Number, RepeatedText, RepeatedNumber };
Q_DECLARE_METATYPE(Form)

class tst_T1013 : public QObject
{
    Q_OBJECT

private slots:
    void records_data()
    {
        QTest::addColumn<Form>("form");
        QTest::addColumn<int>("field");
        QTest::addColumn<int>("index");
        QTest::addColumn<QByteArray>("value"); // null: a null pointer; a number's digits
        QTest::addColumn<QByteArray>("record");
        using B = QByteArray;
        const Form T = Form::Text, L = Form::Latin1, N = Form::Number;
        const Form RT = Form::RepeatedText, RN = Form::RepeatedNumber;
        QTest::newRow("one digit, two spaces") << T << 9 << 0 << B("v") << B("  9v*");
        QTest::newRow("three digits fill the columns") << T << 999 << 0 << B("v") << B("999v*");
        QTest::newRow("four digits widen the record") << T << 1000 << 0 << B("v") << B("1000v*");
        QTest::newRow("Latin-1 to UTF-8") << L << 10 << 0 << B("\xe9t") << B(" 10\xc3\xa9t*");
        QTest::newRow("null pointer is empty text") << L << 10 << 0 << B() << B(" 10*");
        QTest::newRow("a number has no fill") << N << 7 << 0 << B("1") << B("  71*");
        QTest::newRow("widest number") << N << 7 << 0 << B("-2147483648") << B("  7-2147483648*");
        QTest::newRow("repeated: index unfilled") << RT << 9 << 10 << B("v") << B("  9v+10*");
        // The markers are filled in turn, so "%3" in the value takes the index.
        QTest::newRow("repeated: marker takes the index")
            << RT << 12 << 3 << B("a%3") << B(" 12a3+3*");
        QTest::newRow("repeated number") << RN << 12 << 10 << B("-7") << B(" 12-7+10*");
    }
    void records()
    {
        QFETCH(Form, form);
        QFETCH(int, field);
        QFETCH(int, index);
        QFETCH(QByteArray, value);
        QFETCH(QByteArray, record);
        CString text(QString::fromUtf8(value));
        CMemoryBlock block;
        block.Append("<"); // records are appended with nothing in between
        if (form == Form::Text)
            block.AppendT1013Field(field, text);
        if (form == Form::Latin1)
            block.AppendT1013Field(field, value.isNull() ? nullptr : value.constData());
        if (form == Form::Number)
            block.AppendT1013Field(field, value.toInt());
        if (form == Form::RepeatedText)
            block.AppendT1013FieldRecord(field, index, text);
        if (form == Form::RepeatedNumber)
            block.AppendT1013FieldRecord(field, index, value.toInt());
        QCOMPARE(QByteArray(block.GetData(), block.GetContentSize()), "<" + record);
    }
};

QTEST_GUILESS_MAIN(tst_T1013)
#include "tst_t1013.moc"
