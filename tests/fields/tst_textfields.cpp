#include "cboolfield.h"
#include "cdatefield.h"
#include "cfloatfield.h"
#include "cintfield.h"
#include "cstringfield.h"
#include "mydatastream.h"

#include <QBuffer>
#include <QDateTimeEdit>
#include <QTest>

#include <memory>

// QFETCH as an expression, so a column can be used where it is needed.
#define FETCH(Type, name) (*static_cast<Type*>(QTest::qData(#name, ::qMetaTypeId<Type>())))

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
qint64 serialize(std::vector<CField*> fields, QByteArray& bytes, int version = 65536)
{
    QBuffer buffer(&bytes);
    buffer.open(bytes.isEmpty() ? QIODevice::WriteOnly : QIODevice::ReadOnly);
    MyDataStream stream(&buffer);
    Common_Serialize_Func(version, stream, fields);
    return buffer.pos();
}

// Fields from items such as "i7 b1 f5.5 sa_b d20250304 t1000 -": the letter picks the
// class, '_' stands for a blank, "-" for a null pointer.
struct Fields {
    Fields(const QString& items)
    {
        for (const QString& item : items.split(' ', Qt::SkipEmptyParts)) {
            const QString v = item.mid(1).replace('_', ' ');
            const char kind = item.at(0).toLatin1();
            const QDate date = QDate::fromString(v, "yyyyMMdd");
            CField* f = kind == 'i' ? new CIntField(v.toInt())
                : kind == 'b'       ? new CBoolField(v.toInt())
                : kind == 'f'       ? new CFloatField(v.toDouble(), 0)
                : kind == 's'       ? new CStringField(v.toLatin1().constData(), 20)
                : kind == 'd'       ? new CDateField(date, false, FIELD_ATTR_NONE, 0, 65536)
                : kind == 't'       ? static_cast<CField*>(new CDateTimeField)
                                    : nullptr;
            if (kind == 't')
                static_cast<CDateTimeField*>(f)->m_value = QDateTime::fromSecsSinceEpoch(v.toInt());
            owned.emplace_back(f);
            ptrs.push_back(f);
        }
    }
    template<typename T> T& at(size_t i) { return *static_cast<T*>(ptrs.at(i)); }
    std::vector<std::unique_ptr<CField>> owned;
    std::vector<CField*> ptrs;
};

// This run's option: blocks from version 66000 for fields of 200 characters and more.
constexpr int BlockVersion = 66000, LargeSize = 200;

} // namespace

class tst_TextFields : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        // The constant stands in for the widget so that fields need no application object.
        QCOMPARE(CDateField::minimumEditDate(), QDateTimeEdit().minimumDate());
        // Until the application sets the option every string field counts as large.
        QVERIFY(!CStringField("text", 0).canFieldSavedInXML());
        CStringField::setLargeSizeSerializeOption(BlockVersion, LargeSize);
    }

    void stringCleanUp_data()
    {
        columns<QString, int, QString, QString, QString>("op", "maxLen", "in", "held", "out");
        QTest::newRow("toString cuts the output, not the field") << "toString" << 5 << "abcdefgh"
                                                                 << "abcdefgh"
                                                                 << "abcde";
        QTest::newRow("toString trims the field itself") << "toString" << 9 << " a  b\t"
                                                         << "a  b"
                                                         << "a  b";
        QTest::newRow("toString escapes after the cut") << "toString" << 3 << "&&&&"
                                                        << "&&&&"
                                                        << "&#38;&#38;&#38;";
        QTest::newRow("read trims before the cut, no escaping") << "read" << 5 << "   &bcdefgh"
                                                                << "&bcde"
                                                                << "";
        QTest::newRow("C/O first: colon stays") << "co" << 9 << "C/O: John"
                                                << ": John"
                                                << "";
        QTest::newRow("mixed-case forms go") << "co" << 9 << "C/o a c/O b"
                                             << " a  b"
                                             << "";
        QTest::newRow("saved below the large size; the value is not scanned for %n")
            << "save" << LargeSize - 1 << "%1 & %2"
            << "%1 & %2"
            << "<f n=\"\">%1 &#38; %2</f>";
        QTest::newRow("not saved at the large size") << "save" << LargeSize << "a"
                                                     << "a"
                                                     << "";
    }
    void stringCleanUp()
    {
        QFETCH(QString, op);
        QFETCH(QString, in);
        CStringField field(qPrintable(in), FETCH(int, maxLen));
        CString out;
        if (op == "toString")
            field.toString(out);
        else if (op == "read")
            field.readFromString(CString(in));
        else if (op == "save")
            QCOMPARE(field.writeToString(out), FETCH(QString, out).isEmpty() ? -1 : 0);
        else
            field.removeCOInAddr();
        QCOMPARE(QString(field.m_text), FETCH(QString, held));
        QCOMPARE(QString(out), FETCH(QString, out));
    }

    void stringArchive_data()
    {
        columns<QString, int, int, QByteArray, QString>("in", "len", "version", "bytes", "loaded");
        const auto pad = [](const char* s, int n) { return QByteArray(s).leftJustified(n, '\0'); };
        QTest::newRow("stored as UTF-8, loaded as Latin-1, as old archives have it")
            << "été" << 6 << 65536 << pad("\xc3\xa9t\xc3\xa9", 6) << "Ã©tÃ©";
        QTest::newRow("cut, no NUL") << "abcdefgh" << 4 << 65536 << QByteArray("abcd") << "abcd";
        QTest::newRow("negative length: nothing") << "abc" << -1 << 65536 << QByteArray() << "old";
        QTest::newRow("large field before the block version stays fixed")
            << "abc" << LargeSize << BlockVersion - 1 << pad("abc", LargeSize) << "abc";
        QTest::newRow("large field from the block version round-trips UTF-8")
            << "été 𝄞" << LargeSize << BlockVersion
            << QByteArray("\x0a\0\0\0", 4) + QString("été 𝄞").toUtf8() << "été 𝄞";
    }
    void stringArchive()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(int, version);
        CStringField source(0, "", FETCH(int, len), 65536), back(0, "old", source.m_nMaxLen);
        source.m_text = FETCH(QString, in);
        QByteArray stored, waiting = bytes + "tail";
        serialize({ &source }, stored, version);
        QCOMPARE(stored, bytes);
        QCOMPARE(serialize({ &back }, waiting, version), bytes.size());
        QCOMPARE(QString(back.m_text), FETCH(QString, loaded));
    }

    void archives()
    {
        // Bool 2 stays 2, the edit minimum is kept as it is, the null date stays null and the
        // date-time takes no bytes.
        Fields source("i7 b2 f2.5 sab d17520914 d t1000");
        Fields back("i0 b0 f0 s d19990101 d19990101 t5");
        QByteArray bytes, cut("abc"), hugeDay("\xff\xff\xff\xff\xff\xff\xff\x7f", 8);
        QCOMPARE(serialize(source.ptrs, bytes), 4 + 4 + 8 + 20 + 2 * 8);
        QCOMPARE(serialize(back.ptrs, bytes), bytes.size());
        QVERIFY(!Common_Func_OperatorNotEqual(source.ptrs, back.ptrs));
        // A cut archive leaves every field as it was.
        for (CField* field : back.ptrs)
            serialize({ field }, cut);
        QVERIFY(!Common_Func_OperatorNotEqual(source.ptrs, back.ptrs));
        // A day beyond the framework's range reads as the null date.
        serialize({ back.ptrs[4] }, hugeDay);
        QVERIFY(back.at<CDateField>(4).m_value.isNull());
    }

    void boolText_data()
    {
        columns<QString, int>("in", "value");
        QTest::newRow("false in any case") << "fAlSe" << 0;
        QTest::newRow("zero") << "0" << 0;
        QTest::newRow("no in any case") << "No" << 0;
        QTest::newRow("empty text is true") << "" << 1;
        QTest::newRow("00 is not 0") << "00" << 1;
    }
    void boolText()
    {
        CBoolField field(7);
        field.readFromString(CString(FETCH(QString, in)));
        QCOMPARE(field.m_value, FETCH(int, value));
    }

    void dateRules_data()
    {
        // relation: IsAfter, IsNotAfter, IsBefore, IsNotBefore against 2025-06-15.
        columns<QString, QString, bool, QString, QString>("in", "out", "valid", "relation", "next");
        QTest::newRow("zeros: null") << "00000000"
                                     << "00000000" << false << "0000"
                                     << "00000000";
        QTest::newRow("year only: 1 Jan") << "2025"
                                          << "20250101" << true << "0110"
                                          << "20260101";
        QTest::newRow("edit minimum prints but is no date") << "17520914"
                                                            << "17520914" << false << "0000"
                                                            << "17530914";
        QTest::newRow("day before the minimum is a date") << "17520913"
                                                          << "17520913" << true << "0110"
                                                          << "17530913";
        QTest::newRow("same day") << "20250615"
                                  << "20250615" << true << "0101"
                                  << "20260615";
        QTest::newRow("29 February has no next year: null") << "20280229"
                                                            << "20280229" << true << "1001"
                                                            << "00000000";
    }
    void dateRules()
    {
        CDateField field(QDate(2000, 1, 1), false, FIELD_ATTR_NONE, 0, 65536);
        field.readFromString(CString(FETCH(QString, in)));
        QCOMPARE(text(field), FETCH(QString, out));
        QCOMPARE(field.IsValid(), FETCH(bool, valid));
        QCOMPARE(QStringLiteral("%1%2%3%4")
                     .arg(field.IsAfter(2025, 6, 15))
                     .arg(field.IsNotAfter(2025, 6, 15))
                     .arg(field.IsBefore(2025, 6, 15))
                     .arg(field.IsNotBefore(2025, 6, 15)),
                 FETCH(QString, relation));
        field.set1YLater();
        QCOMPARE(text(field), FETCH(QString, next));
    }

    void notEqual_data()
    {
        columns<QString, QString, bool>("a", "b", "differ");
        QTest::newRow("unequal lengths compare the common part") << "i1 i2 i3"
                                                                 << "i1 i2" << false;
        QTest::newRow("amounts under 0.009 apart are equal") << "f10"
                                                             << "f10.008" << false;
        QTest::newRow("amounts exactly 0.009 apart differ") << "f0"
                                                            << "f0.009" << true;
        QTest::newRow("two NaN amounts are equal") << "fnan"
                                                   << "fnan" << false;
        QTest::newRow("NaN against zero differs") << "fnan"
                                                  << "f0" << true;
        QTest::newRow("text: inner runs and ends of blanks") << "sa__b"
                                                             << "s_a_b_" << false;
        QTest::newRow("text: letter case counts") << "sMain"
                                                  << "smain" << true;
        QTest::newRow("bool 1 and 2 differ") << "b1"
                                             << "b2" << true;
        QTest::newRow("date differs") << "d20250101"
                                      << "d20250102" << true;
        QTest::newRow("date-time is not compared") << "t1 i1"
                                                   << "t2 i1" << false;
        QTest::newRow("types that do not pair differ") << "i0"
                                                       << "f0" << true;
        QTest::newRow("null pointers are passed over") << "- i1"
                                                       << "i5 i1" << false;
    }
    void notEqual()
    {
        Fields a(FETCH(QString, a)), b(FETCH(QString, b));
        QCOMPARE(Common_Func_OperatorNotEqual(a.ptrs, b.ptrs), FETCH(bool, differ));
    }

    void assignAndClear()
    {
        Fields from("i1 b2 f1.23456 ssrc d20250304 t1000 i9 i4");
        Fields to("i0 b0 f0 sdst d19990101 t2000 f7 -");
        Common_Func_OperatorAssign(from.ptrs, to.ptrs); // the source comes first
        QCOMPARE(to.at<CBoolField>(1).m_value, 2);
        QCOMPARE(to.at<CFloatField>(2).m_value, 1.23456); // copied, not rounded
        QCOMPARE(QString(to.at<CStringField>(3).m_text), QStringLiteral("src"));
        QCOMPARE(to.at<CDateTimeField>(5).m_value, QDateTime::fromSecsSinceEpoch(2000));
        QCOMPARE(to.at<CFloatField>(6).m_value, 7.0); // an int does not pair with an amount
        Common_ClearData_Func(&to.ptrs);
        QCOMPARE(to.at<CIntField>(0).m_value, 1); // integers and dates are kept
        QCOMPARE(to.at<CDateField>(4).m_value, QDate(2025, 3, 4));
        QCOMPARE(to.at<CBoolField>(1).m_value, 0);
        QCOMPARE(to.at<CFloatField>(2).m_value, 0.0);
        QVERIFY(to.at<CStringField>(3).m_text.isEmpty());
    }
};

QTEST_MAIN(tst_TextFields)
#include "tst_textfields.moc"
