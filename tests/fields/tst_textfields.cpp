#include "cboolfield.h"
#include "cdatefield.h"
#include "cfloatfield.h"
#include "cintfield.h"
#include "cstringfield.h"
#include "mydatastream.h"
#include "streambytes.h"

#include <QDateTimeEdit>
#include <QTest>

#include <memory>

using Field = std::shared_ptr<CField>;
Q_DECLARE_METATYPE(Field)

namespace {

constexpr uint NoEnd = 0xfffffff;

// This run's option: blocks from version 66000 for fields of 200 characters and more.
constexpr uint BlockVersion = 66000;
constexpr int LargeSize = 200;

// The date 2025-06-15 that the relation rows are held against.
constexpr int Year = 2025, Month = 6, Day = 15;

QString text(CField& field)
{
    CString out;
    field.toString(out);
    return out;
}

QByteArray dateBytes(const QDate& date)
{
    return storeBytes([&](MyDataStream& stream) { stream << date; });
}

// Field lists from items such as "i7 b1 f5.5 sa_b d20250304 t1000 -": the letter picks
// the class, '_' stands for a blank, "-" for a null pointer.
struct Fields {
    explicit Fields(const QString& items)
    {
        for (const QString& item : items.split(' ', Qt::SkipEmptyParts)) {
            const QString v = item.mid(1).replace('_', ' ');
            CField* f = nullptr;
            switch (item.at(0).toLatin1()) {
            case 'i':
                f = new CIntField(v.toInt());
                break;
            case 'b':
                f = new CBoolField(v.toInt());
                break;
            case 'f':
                f = new CFloatField(v.toDouble(), 0);
                break;
            case 's':
                f = new CStringField(v.toLatin1().constData(), 20);
                break;
            case 'd':
                f = new CDateField(QDate::fromString(v, "yyyyMMdd"), false, FIELD_ATTR_NONE, 0,
                                   65536);
                break;
            case 't':
                f = new CDateTimeField;
                static_cast<CDateTimeField*>(f)->m_value = QDateTime::fromSecsSinceEpoch(v.toInt());
                break;
            }
            owned.emplace_back(f);
            ptrs.push_back(f);
        }
    }
    template<typename T> T& at(size_t i) { return *static_cast<T*>(ptrs.at(i)); }
    std::vector<std::unique_ptr<CField>> owned;
    std::vector<CField*> ptrs;
};

} // namespace

class tst_TextFields : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void stringToString_data();
    void stringToString();
    void stringFromText_data();
    void stringFromText();
    void removeCOInAddr_data();
    void removeCOInAddr();
    void stringValidate_data();
    void stringValidate();
    void stringDiffers_data();
    void stringDiffers();
    void stringQueries_data();
    void stringQueries();
    void stringSaved_data();
    void stringSaved();
    void stringArchive_data();
    void stringArchive();
    void boolFromText_data();
    void boolFromText();
    void boolToString_data();
    void boolToString();
    void dateFromText_data();
    void dateFromText();
    void dateValidity_data();
    void dateValidity();
    void dateRelations_data();
    void dateRelations();
    void oneYearLater_data();
    void oneYearLater();
    void dateArchive_data();
    void dateArchive();
    void dateTimeHoldsItsConstruction();
    void versionRange_data();
    void versionRange();
    void commonSerialize();
    void commonNotEqual_data();
    void commonNotEqual();
    void commonAssign();
    void commonClear();
};

void tst_TextFields::initTestCase()
{
    // The constant stands in for the widget so that fields need no application object.
    QCOMPARE(CDateField::minimumEditDate(), QDateTimeEdit().minimumDate());
    // Until the application sets the option every string field counts as large.
    QVERIFY(!CStringField("text", 0).canFieldSavedInXML());
    CStringField::setLargeSizeSerializeOption(BlockVersion, LargeSize);
}

void tst_TextFields::stringToString_data()
{
    QTest::addColumn<int>("maxLen");
    QTest::addColumn<QString>("in");
    QTest::addColumn<QString>("held");
    QTest::addColumn<QString>("out");
    QTest::newRow("longer than maxLen: the output is cut, not the field") << 5 << "abcdefgh"
                                                                          << "abcdefgh"
                                                                          << "abcde";
    QTest::newRow("as long as maxLen: whole") << 5 << "abcde"
                                              << "abcde"
                                              << "abcde";
    QTest::newRow("the field itself is trimmed") << 9 << " a  b\t"
                                                 << "a  b"
                                                 << "a  b";
    QTest::newRow("blanks only turn empty") << 9 << " \t "
                                            << ""
                                            << "";
    QTest::newRow("escaped after the cut") << 3 << "&&&&"
                                           << "&&&&"
                                           << "&#38;&#38;&#38;";
}

void tst_TextFields::stringToString()
{
    QFETCH(int, maxLen);
    QFETCH(QString, in);
    CStringField field("", maxLen);
    field.m_text = in;
    CString out("old");
    QCOMPARE(field.toString(out), 0);
    QTEST(QString(field.m_text), "held");
    QTEST(QString(out), "out");
}

void tst_TextFields::stringFromText_data()
{
    QTest::addColumn<int>("maxLen");
    QTest::addColumn<QString>("in");
    QTest::addColumn<QString>("held");
    QTest::newRow("trimmed before the cut, not escaped") << 5 << "   &bcdefgh"
                                                         << "&bcde";
    QTest::newRow("as long as maxLen: whole") << 5 << "abcde"
                                              << "abcde";
    QTest::newRow("one longer than maxLen: cut") << 5 << "abcdef"
                                                 << "abcde";
}

void tst_TextFields::stringFromText()
{
    QFETCH(int, maxLen);
    QFETCH(QString, in);
    CStringField field("old", maxLen);
    QCOMPARE(field.readFromString(CString(in)), 0);
    QTEST(QString(field.m_text), "held");
}

void tst_TextFields::removeCOInAddr_data()
{
    QTest::addColumn<QString>("in");
    QTest::addColumn<QString>("out");
    QTest::newRow("C/O goes first, so its colon stays") << "C/O: John"
                                                        << ": John";
    QTest::newRow("A/S goes first, so its colon stays") << "A/S: Ann"
                                                        << ": Ann";
    QTest::newRow("every occurrence, no trimming") << "C/O a C/O b"
                                                   << " a  b";
    QTest::newRow("c/o, C/o and c/O go") << "c/o1C/o2c/O3"
                                         << "123";
    QTest::newRow("a/s is not a marker") << "a/s x"
                                         << "a/s x";
}

void tst_TextFields::removeCOInAddr()
{
    QFETCH(QString, in);
    CStringField field("", 20);
    field.m_text = in;
    field.removeCOInAddr();
    QTEST(QString(field.m_text), "out");
}

void tst_TextFields::stringValidate_data()
{
    QTest::addColumn<uint>("attr");
    QTest::addColumn<QString>("in");
    QTest::addColumn<QString>("out");
    QTest::newRow("trimmed, then one pass over double blanks") << 0u << "  a   b  "
                                                               << "a  b";
    QTest::newRow("not cut to maxLen") << 0u << "abcdefgh"
                                       << "abcdefgh";
    QTest::newRow("the keep-spaces bit leaves it") << uint(FIELD_ATTR_KEEP_SPACES) << " a  b "
                                                   << " a  b ";
    QTest::newRow("the bit is tested alone") << uint(FIELD_ATTR_KEEP_SPACES) + 5 << " a  b "
                                             << " a  b ";
    QTest::newRow("a rollover attribute does not keep spaces")
        << uint(FIELD_ATTR_CLEAR_TEXT_ON_ROLLOVER) << " a  b "
        << "a b";
}

void tst_TextFields::stringValidate()
{
    QFETCH(uint, attr);
    QFETCH(QString, in);
    CStringField field(0, "", 4, ENUMTYPE_FIELD_ATTR(attr), 0, 65536);
    field.m_text = in;
    QCOMPARE(field.ValidateAndCorrect(), 0);
    QTEST(QString(field.m_text), "out");
}

void tst_TextFields::stringDiffers_data()
{
    QTest::addColumn<QString>("a");
    QTest::addColumn<QString>("b");
    QTest::addColumn<bool>("differ");
    QTest::newRow("inner runs of blanks count as one") << "a  b"
                                                       << "a b" << false;
    QTest::newRow("a tab counts as a blank") << "a\tb"
                                             << "a b" << false;
    QTest::newRow("the ends do not count") << " a b "
                                           << "a b" << false;
    QTest::newRow("a blank where there was none counts") << "ab"
                                                         << "a b" << true;
    QTest::newRow("letter case counts") << "Main"
                                        << "main" << true;
}

void tst_TextFields::stringDiffers()
{
    QFETCH(QString, a);
    QFETCH(QString, b);
    CStringField fa("", 20), fb("", 20);
    fa.m_text = a;
    fb.m_text = b;
    QTEST(fa != fb, "differ");
}

void tst_TextFields::stringQueries_data()
{
    QTest::addColumn<QString>("in");
    QTest::addColumn<bool>("emptyIfRemoveBlank");
    QTest::addColumn<bool>("allZero");
    QTest::addColumn<QString>("trimmed");
    QTest::newRow("empty") << "" << true << true << "";
    QTest::newRow("blanks only") << " \t" << true << false << "";
    QTest::newRow("zeros") << "000" << false << true << "000";
    QTest::newRow("a blank among zeros") << " 00" << false << false << "00";
    QTest::newRow("a digit other than zero") << "010" << false << false << "010";
}

void tst_TextFields::stringQueries()
{
    QFETCH(QString, in);
    CStringField field("", 20);
    field.m_text = in;
    QTEST(field.IsEmptyIfRemoveBlank(), "emptyIfRemoveBlank");
    QTEST(field.IsAllZero(), "allZero");
    QTEST(QString(field.GetTrimedString()), "trimmed");
    QTEST(QString::fromStdString(std::string(field)), "trimmed");
    QCOMPARE(QString(field.m_text), in); // the queries leave the field alone
}

void tst_TextFields::stringSaved_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("maxLen");
    QTest::addColumn<int>("result");
    QTest::addColumn<QString>("out");
    QTest::newRow("one below the large size: saved; the value is not scanned for %n")
        << "fld_a" << LargeSize - 1 << 0 << "<f n=\"fld_a\">%1 &#38; %2</f>";
    QTest::newRow("at the large size: not saved") << "fld_a" << LargeSize << -1 << "old";
    QTest::newRow("a negative length counts as large") << "fld_a" << -1 << -1 << "old";
    QTest::newRow("below the large size, notused still counts")
        << "fld_notused" << 10 << -1 << "old";
}

void tst_TextFields::stringSaved()
{
    QFETCH(QString, name);
    QFETCH(int, maxLen);
    CStringField field("", maxLen);
    field.m_name = name.toStdString();
    field.m_text = "%1 & %2";
    CString out("old");
    QTEST(field.writeToString(out), "result");
    QTEST(QString(out), "out");
}

void tst_TextFields::stringArchive_data()
{
    // The field exists from version 65536 on.
    QTest::addColumn<QString>("in");
    QTest::addColumn<int>("maxLen");
    QTest::addColumn<uint>("version");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("loaded");
    const auto pad = [](const char* s, int n) { return QByteArray(s).leftJustified(n, '\0'); };
    QTest::newRow("stored as UTF-8, loaded as Latin-1, as old archives have it")
        << "été" << 6 << 65536u << pad("\xc3\xa9t\xc3\xa9", 6) << "Ã©tÃ©";
    QTest::newRow("one shorter than maxLen: the NUL fits")
        << "abc" << 4 << 65536u << QByteArray("abc\0", 4) << "abc";
    QTest::newRow("as long as maxLen: no NUL")
        << "abcd" << 4 << 65536u << QByteArray("abcd") << "abcd";
    QTest::newRow("longer: cut at the byte count")
        << "abcdefgh" << 4 << 65536u << QByteArray("abcd") << "abcd";
    QTest::newRow("negative length: nothing") << "abc" << -1 << 65536u << QByteArray() << "old";
    QTest::newRow("one below the first version: nothing")
        << "abc" << 4 << 65535u << QByteArray() << "old";
    QTest::newRow("the no-end version: fixed bytes")
        << "abc" << 4 << NoEnd << QByteArray("abc\0", 4) << "abc";
    QTest::newRow("one past the no-end version: nothing")
        << "abc" << 4 << NoEnd + 1 << QByteArray() << "old";
    QTest::newRow("a large field before the block version stays fixed")
        << "abc" << LargeSize << BlockVersion - 1 << pad("abc", LargeSize) << "abc";
    QTest::newRow("one below the large size at the block version stays fixed")
        << "abc" << LargeSize - 1 << BlockVersion << pad("abc", LargeSize - 1) << "abc";
    QTest::newRow("a large field from the block version: a block, UTF-8 both ways")
        << "été 𝄞" << LargeSize << BlockVersion
        << QByteArray("\x0a\0\0\0", 4) + QString("été 𝄞").toUtf8() << "été 𝄞";
}

void tst_TextFields::stringArchive()
{
    QFETCH(QString, in);
    QFETCH(int, maxLen);
    QFETCH(uint, version);
    QFETCH(QByteArray, bytes);
    CStringField source(0, "", maxLen, 65536), back(0, "old", maxLen, 65536);
    source.m_text = in;
    QCOMPARE(storeBytes([&](MyDataStream& stream) { source.Serialize(version, stream); }), bytes);
    QCOMPARE(
        loadBytes(bytes + "tail", [&](MyDataStream& stream) { back.Serialize(version, stream); }),
        qint64(bytes.size()));
    QTEST(QString(back.m_text), "loaded");
}

void tst_TextFields::boolFromText_data()
{
    QTest::addColumn<QString>("in");
    QTest::addColumn<int>("value");
    QTest::newRow("false in any case") << "fAlSe" << 0;
    QTest::newRow("0") << "0" << 0;
    QTest::newRow("no in any case") << "No" << 0;
    QTest::newRow("00 is not 0") << "00" << 1;
    QTest::newRow("n is not no") << "n" << 1;
    QTest::newRow("yes") << "yes" << 1;
    QTest::newRow("true") << "true" << 1;
    QTest::newRow("empty text is true") << "" << 1;
}

void tst_TextFields::boolFromText()
{
    QFETCH(QString, in);
    CBoolField field(7);
    QCOMPARE(field.readFromString(CString(in)), 0);
    QTEST(field.m_value, "value");
}

void tst_TextFields::boolToString_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("0") << 0 << "0";
    QTest::newRow("1") << 1 << "1";
    QTest::newRow("any other value is 1") << -2 << "1";
}

void tst_TextFields::boolToString()
{
    QFETCH(int, value);
    CBoolField field(value);
    QTEST(text(field), "text");
    QCOMPARE(field.m_value, value); // never normalised
}

void tst_TextFields::dateFromText_data()
{
    QTest::addColumn<QString>("in");
    QTest::addColumn<QDate>("date");
    QTest::addColumn<QString>("out");
    QTest::newRow("zeros: null") << "00000000" << QDate() << "00000000";
    QTest::newRow("four digits: 1 January") << "2025" << QDate(2025, 1, 1) << "20250101";
    QTest::newRow("six digits: the first of the month")
        << "202503" << QDate(2025, 3, 1) << "20250301";
    QTest::newRow("the edit minimum prints though it is no date")
        << "17520914" << QDate(1752, 9, 14) << "17520914";
}

void tst_TextFields::dateFromText()
{
    QFETCH(QString, in);
    CDateField field(QDate(2000, 1, 1), false, FIELD_ATTR_NONE, 0, 65536);
    QCOMPARE(field.readFromString(CString(in)), 0);
    QTEST(field.m_value, "date");
    QTEST(text(field), "out");
}

void tst_TextFields::dateValidity_data()
{
    QTest::addColumn<QDate>("date");
    QTest::addColumn<bool>("valid");
    QTest::newRow("null") << QDate() << false;
    QTest::newRow("the edit minimum counts as no date") << QDate(1752, 9, 14) << false;
    QTest::newRow("the day before the minimum is a date") << QDate(1752, 9, 13) << true;
    QTest::newRow("the day after the minimum is a date") << QDate(1752, 9, 15) << true;
}

void tst_TextFields::dateValidity()
{
    QFETCH(QDate, date);
    QFETCH(bool, valid);
    CDateField field(date, false, FIELD_ATTR_NONE, 0, 65536);
    QCOMPARE(field.IsValid(), valid);
    QCOMPARE(field.IsZero(), !valid);
}

void tst_TextFields::dateRelations_data()
{
    QTest::addColumn<QDate>("date");
    QTest::addColumn<bool>("after");
    QTest::addColumn<bool>("notAfter");
    QTest::addColumn<bool>("before");
    QTest::addColumn<bool>("notBefore");
    const QDate d(Year, Month, Day);
    QTest::newRow("the day before") << d.addDays(-1) << false << true << true << false;
    QTest::newRow("the same day") << d << false << true << false << true;
    QTest::newRow("the day after") << d.addDays(1) << true << false << false << true;
    QTest::newRow("null: all false") << QDate() << false << false << false << false;
    QTest::newRow("the edit minimum: all false")
        << QDate(1752, 9, 14) << false << false << false << false;
}

void tst_TextFields::dateRelations()
{
    QFETCH(QDate, date);
    CDateField field(date, false, FIELD_ATTR_NONE, 0, 65536);
    QTEST(field.IsAfter(Year, Month, Day), "after");
    QTEST(field.IsNotAfter(Year, Month, Day), "notAfter");
    QTEST(field.IsBefore(Year, Month, Day), "before");
    QTEST(field.IsNotBefore(Year, Month, Day), "notBefore");
}

void tst_TextFields::oneYearLater_data()
{
    QTest::addColumn<QDate>("date");
    QTest::addColumn<QDate>("later");
    QTest::newRow("the same day next year") << QDate(2025, 6, 15) << QDate(2026, 6, 15);
    QTest::newRow("28 February into a leap year") << QDate(2027, 2, 28) << QDate(2028, 2, 28);
    QTest::newRow("29 February has no next year: null") << QDate(2028, 2, 29) << QDate();
    QTest::newRow("null stays null") << QDate() << QDate();
}

void tst_TextFields::oneYearLater()
{
    QFETCH(QDate, date);
    CDateField field(date, false, FIELD_ATTR_NONE, 0, 65536);
    field.set1YLater();
    QTEST(field.m_value, "later");
}

void tst_TextFields::dateArchive_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QDate>("loaded");
    QTest::newRow("a date") << dateBytes(QDate(2025, 3, 4)) << QDate(2025, 3, 4);
    QTest::newRow("the edit minimum is kept as it is")
        << dateBytes(QDate(1752, 9, 14)) << QDate(1752, 9, 14);
    QTest::newRow("null stays null") << dateBytes(QDate()) << QDate();
    QTest::newRow("a day beyond the framework's range reads as null")
        << QByteArray("\xff\xff\xff\xff\xff\xff\xff\x7f", 8) << QDate();
    QTest::newRow("a cut archive leaves the field") << QByteArray("abc") << QDate(1999, 1, 1);
}

void tst_TextFields::dateArchive()
{
    QFETCH(QByteArray, bytes);
    CDateField field(QDate(1999, 1, 1), false, FIELD_ATTR_NONE, 0, 65536);
    loadBytes(bytes, [&](MyDataStream& stream) { field.Serialize(65536, stream); });
    QTEST(field.m_value, "loaded");
}

void tst_TextFields::dateTimeHoldsItsConstruction()
{
    const QDateTime before = QDateTime::currentDateTime();
    CDateTimeField field;
    const QDateTime after = QDateTime::currentDateTime();
    QVERIFY(before <= field.m_value && field.m_value <= after);
}

void tst_TextFields::versionRange_data()
{
    QTest::addColumn<Field>("field");
    QTest::addColumn<uint>("version");
    QTest::addColumn<int>("bytes");
    const auto flag = [] { return Field(new CBoolFieldNotused(65536, NoEnd)); };
    const auto date
        = [] { return Field(new CDateField(QDate(2025, 3, 4), false, FIELD_ATTR_NONE, 0, 70000)); };
    QTest::newRow("bool: one below the first version") << flag() << 65535u << 0;
    QTest::newRow("bool: the first version") << flag() << 65536u << 4;
    QTest::newRow("bool: the no-end version") << flag() << NoEnd << 4;
    QTest::newRow("bool: one past the no-end version") << flag() << NoEnd + 1 << 0;
    QTest::newRow("date: one below its first version") << date() << 69999u << 0;
    QTest::newRow("date: its first version") << date() << 70000u << 8;
}

void tst_TextFields::versionRange()
{
    QFETCH(Field, field);
    QFETCH(uint, version);
    QTEST(int(storeBytes([&](MyDataStream& stream) { field->Serialize(version, stream); }).size()),
          "bytes");
}

void tst_TextFields::commonSerialize()
{
    // Bool 2 stays 2, and the date-time takes no bytes.
    Fields source("i7 b2 f2.5 sab d20250304 d t1000");
    Fields back("i0 b0 f0 s d19990101 d19990101 t5");
    const QByteArray bytes = storeBytes(
        [&](MyDataStream& stream) { Common_Serialize_Func(65536, stream, source.ptrs); });
    QCOMPARE(bytes.size(), 4 + 4 + 8 + 20 + 8 + 8);
    QCOMPARE(
        loadBytes(bytes,
                  [&](MyDataStream& stream) { Common_Serialize_Func(65536, stream, back.ptrs); }),
        qint64(bytes.size()));
    QCOMPARE(back.at<CIntField>(0).m_value, 7);
    QCOMPARE(back.at<CBoolField>(1).m_value, 2);
    QCOMPARE(back.at<CFloatField>(2).m_value, 2.5);
    QCOMPARE(QString(back.at<CStringField>(3).m_text), QStringLiteral("ab"));
    QCOMPARE(back.at<CDateField>(4).m_value, QDate(2025, 3, 4));
    QCOMPARE(back.at<CDateField>(5).m_value, QDate());
    QCOMPARE(back.at<CDateTimeField>(6).m_value, QDateTime::fromSecsSinceEpoch(5));
}

void tst_TextFields::commonNotEqual_data()
{
    QTest::addColumn<QString>("a");
    QTest::addColumn<QString>("b");
    QTest::addColumn<bool>("differ");
    QTest::newRow("unequal lengths compare the common part") << "i1 i2 i3"
                                                             << "i1 i2" << false;
    QTest::newRow("an empty list is equal to any") << ""
                                                   << "i1" << false;
    QTest::newRow("a difference after an equal pair") << "i1 i2"
                                                      << "i1 i3" << true;
    QTest::newRow("bool 1 and 2 differ") << "b1"
                                         << "b2" << true;
    QTest::newRow("amounts by their tolerance") << "f10"
                                                << "f10.008" << false;
    QTest::newRow("texts by their blank rule") << "sa__b"
                                               << "s_a_b_" << false;
    QTest::newRow("dates by value") << "d20250101"
                                    << "d20250102" << true;
    QTest::newRow("date-times are not compared") << "t1 i1"
                                                 << "t2 i1" << false;
    QTest::newRow("types that do not pair differ") << "i0"
                                                   << "f0" << true;
    QTest::newRow("null pointers are passed over") << "- i1"
                                                   << "i5 i1" << false;
}

void tst_TextFields::commonNotEqual()
{
    QFETCH(QString, a);
    QFETCH(QString, b);
    Fields fa(a), fb(b);
    QTEST(Common_Func_OperatorNotEqual(fa.ptrs, fb.ptrs), "differ");
}

void tst_TextFields::commonAssign()
{
    Fields from("i1 b2 f1.23456 ssrc d20250304 t1000 i9 i4");
    Fields to("i0 b0 f0 sdst d19990101 t2000 f7 -");
    Common_Func_OperatorAssign(from.ptrs, to.ptrs); // the source comes first
    QCOMPARE(to.at<CIntField>(0).m_value, 1);
    QCOMPARE(to.at<CBoolField>(1).m_value, 2);
    QCOMPARE(to.at<CFloatField>(2).m_value, 1.23456); // copied, not rounded
    QCOMPARE(QString(to.at<CStringField>(3).m_text), QStringLiteral("src"));
    QCOMPARE(to.at<CDateField>(4).m_value, QDate(2025, 3, 4));
    QCOMPARE(to.at<CDateTimeField>(5).m_value, QDateTime::fromSecsSinceEpoch(2000));
    QCOMPARE(to.at<CFloatField>(6).m_value, 7.0); // an int does not pair with an amount
}

void tst_TextFields::commonClear()
{
    Fields fields("i1 b2 f1.5 stext d20250304 t1000");
    Common_ClearData_Func(&fields.ptrs);
    QCOMPARE(fields.at<CBoolField>(1).m_value, 0);
    QCOMPARE(fields.at<CFloatField>(2).m_value, 0.0);
    QVERIFY(fields.at<CStringField>(3).m_text.isNull());
    // Integers, dates and date-times keep their value.
    QCOMPARE(fields.at<CIntField>(0).m_value, 1);
    QCOMPARE(fields.at<CDateField>(4).m_value, QDate(2025, 3, 4));
    QCOMPARE(fields.at<CDateTimeField>(5).m_value, QDateTime::fromSecsSinceEpoch(1000));
}

QTEST_MAIN(tst_TextFields)
#include "tst_textfields.moc"
