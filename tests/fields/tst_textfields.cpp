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

// A call on a field built from the row's text and number; the row picks it.
using Op = QString (*)(QString in, int n);
using Field = std::shared_ptr<CField>;
Q_DECLARE_METATYPE(Op)
Q_DECLARE_METATYPE(Field)

namespace {

constexpr uint NoEnd = 0xfffffff;

// This run's option: blocks from version 66000 for fields of 200 characters and more.
constexpr uint BlockVersion = 66000;
constexpr int LargeSize = 200;

CDateField date(const QString& yyyyMMdd)
{
    return CDateField(QDate::fromString(yyyyMMdd, "yyyyMMdd"), false, FIELD_ATTR_NONE, 0, 65536);
}

QString text(CField& field)
{
    CString out("old");
    field.toString(out);
    return out;
}

// Field lists written as "i7 b1 f5.5 sa_b d20250304 t1000 -": the letter picks the
// class, '_' stands for a blank, "-" for a null pointer. The same form comes back.
struct Fields {
    explicit Fields(const QString& items)
    {
        for (const QString& item : items.split(' ', Qt::SkipEmptyParts)) {
            const QString v = item.mid(1).replace('_', ' ');
            const char kind = item.at(0).toLatin1();
            CField* f = kind == 'i' ? new CIntField(v.toInt())
                : kind == 'b'       ? new CBoolField(v.toInt())
                : kind == 'f'       ? new CFloatField(v.toDouble(), 0)
                : kind == 's'       ? new CStringField(v.toLatin1().constData(), 20)
                : kind == 'd'       ? new CDateField(date(v))
                : kind == 't'       ? static_cast<CField*>(new CDateTimeField)
                                    : nullptr;
            if (kind == 't')
                static_cast<CDateTimeField*>(f)->m_value = QDateTime::fromSecsSinceEpoch(v.toInt());
            owned.emplace_back(f);
            ptrs.push_back(f);
        }
    }
    QString items() const
    {
        QStringList out;
        for (CField* f : ptrs) {
            if (auto t = dynamic_cast<CDateTimeField*>(f))
                out << 't' + QString::number(t->m_value.toSecsSinceEpoch());
            else if (auto d = dynamic_cast<CDateField*>(f))
                out << 'd' + d->m_value.toString("yyyyMMdd");
            else if (auto s = dynamic_cast<CStringField*>(f))
                out << 's' + QString(s->m_text).replace(' ', '_');
            else if (auto a = dynamic_cast<CFloatField*>(f))
                out << 'f' + QString::number(a->m_value);
            else if (auto b = dynamic_cast<CBoolField*>(f))
                out << 'b' + QString::number(b->m_value);
            else if (auto i = dynamic_cast<CIntField*>(f))
                out << 'i' + QString::number(i->m_value);
            else
                out << "-";
        }
        return out.join(' ');
    }
    std::vector<std::unique_ptr<CField>> owned;
    std::vector<CField*> ptrs;
};

} // namespace

class tst_TextFields : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        // The constant stands in for the widget so that fields need no application object.
        QCOMPARE(CDateField::minimumEditDate(), QDateTimeEdit().minimumDate());
        // Until the application sets the option every string field counts as large.
        QVERIFY(!CStringField("text", 0).canFieldSavedInXML());
        CStringField::setLargeSizeSerializeOption(BlockVersion, LargeSize);
    }

    void calls_data()
    {
        QTest::addColumn<QString>("in");
        QTest::addColumn<int>("n");
        QTest::addColumn<Op>("op");
        QTest::addColumn<QString>("expected");
        // A string field of maxLen n: the output, then the field.
        const Op toText = [](auto in, auto n) {
            CStringField f(in.toLatin1().data(), n);
            return QString("%1|%2").arg(text(f)).arg(f.m_text);
        };
        const Op read = [](auto in, auto n) {
            CStringField f("old", n);
            return f.readFromString(in), QString(f.m_text);
        };
        const Op co = [](auto in, auto n) {
            CStringField f(in.toLatin1().data(), n);
            return f.removeCOInAddr(), QString(f.m_text);
        };
        const Op validate = [](auto in, auto n) {
            CStringField f(in.toLatin1().data(), n);
            return f.ValidateAndCorrect(), QString(f.m_text);
        };
        // The text is the name: the result, then the output.
        const Op saved = [](auto in, auto n) {
            CStringField f("%1 & %2", n);
            f.m_name = in.toStdString();
            CString out("old");
            const int result = f.writeToString(out);
            return QString("%1|%2").arg(result).arg(out);
        };
        const Op readBool = [](auto in, auto) {
            CBoolField f(7);
            return f.readFromString(in), QString::number(f.m_value);
        };
        // Against 2025-06-15: after, not after, before, not before.
        const Op relations = [](auto in, auto) {
            const auto f = date(in);
            return QString("%1%2%3%4")
                .arg(f.IsAfter(2025, 6, 15))
                .arg(f.IsNotAfter(2025, 6, 15))
                .arg(f.IsBefore(2025, 6, 15))
                .arg(f.IsNotBefore(2025, 6, 15));
        };
        const Op later = [](auto in, auto) {
            auto f = date(in);
            return f.set1YLater(), f.m_value.toString("yyyyMMdd");
        };
        // The text is the archive in hex; the field holds 1999-01-01 before.
        const Op load = [](auto in, auto) {
            auto f = date("19990101");
            const QByteArray bytes = QByteArray::fromHex(in.toLatin1());
            loadBytes(bytes, [&](MyDataStream& s) { f.Serialize(65536, s); });
            return f.m_value.toString("yyyyMMdd");
        };
        QTest::newRow("the output cut, the field trimmed")
            << " abcdefgh" << 5 << toText << "abcde|abcdefgh";
        QTest::newRow("escaped after the cut") << "&&&&" << 3 << toText << "&#38;&#38;&#38;|&&&&";
        QTest::newRow("read: trimmed, cut, not escaped") << "   &bcdefgh" << 5 << read << "&bcde";
        QTest::newRow("C/O goes before its colon") << "C/O: John" << 20 << co << ": John";
        QTest::newRow("every c/o, C/o and c/O") << "c/o1C/o2c/O3" << 20 << co << "123";
        QTest::newRow("validate: trim, one pass") << "  a   b  " << 4 << validate << "a  b";
        QTest::newRow("saved under the large size, unscanned")
            << "fld_a" << LargeSize - 1 << saved << "0|<f n=\"fld_a\">%1 &#38; %2</f>";
        QTest::newRow("not saved at the large size") << "fld_a" << LargeSize << saved << "-1|old";
        QTest::newRow("a negative length is large") << "fld_a" << -1 << saved << "-1|old";
        QTest::newRow("notused: not saved") << "fld_notused" << 10 << saved << "-1|old";
        QTest::newRow("no in any case") << "No" << 0 << readBool << "0";
        QTest::newRow("00 is not 0") << "00" << 0 << readBool << "1";
        QTest::newRow("the day before") << "20250614" << 0 << relations << "0110";
        QTest::newRow("the same day") << "20250615" << 0 << relations << "0101";
        QTest::newRow("the day after") << "20250616" << 0 << relations << "1001";
        QTest::newRow("null: all false") << "" << 0 << relations << "0000";
        QTest::newRow("the edit minimum: all false") << "17520914" << 0 << relations << "0000";
        QTest::newRow("29 February has no next") << "20280229" << 0 << later << "";
        QTest::newRow("a date loads") << "438c250000000000" << 0 << load << "20250304";
        QTest::newRow("beyond the framework's range") << "ffffffffffffff7f" << 0 << load << "";
        QTest::newRow("a cut archive leaves it") << "616263" << 0 << load << "19990101";
    }
    void calls()
    {
        QFETCH(QString, in);
        QFETCH(int, n);
        QFETCH(Op, op);
        QTEST(op(in, n), "expected");
    }

    void stringArchive_data()
    {
        // The field exists from version 65536 on.
        QTest::addColumn<QString>("in");
        QTest::addColumn<int>("maxLen");
        QTest::addColumn<uint>("version");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("loaded");
        const auto pad = [](const char* s, int n) { return QByteArray(s).leftJustified(n, '\0'); };
        const QByteArray none, abc0("abc\0", 4), abcd("abcd");
        const QString clef = "\u00e9t\u00e9 \U0001D11E";
        QTest::newRow("UTF-8 out, Latin-1 in")
            << "\u00e9t\u00e9" << 6 << 65536u << pad("\xc3\xa9t\xc3\xa9", 6)
            << "\u00c3\u00a9t\u00c3\u00a9";
        QTest::newRow("under maxLen: a NUL") << "abc" << 4 << 65536u << abc0 << "abc";
        QTest::newRow("maxLen: no NUL") << "abcd" << 4 << 65536u << abcd << "abcd";
        QTest::newRow("over maxLen: cut") << "abcdefgh" << 4 << 65536u << abcd << "abcd";
        QTest::newRow("negative length") << "abc" << -1 << 65536u << none << "old";
        QTest::newRow("before the first version") << "abc" << 4 << 65535u << none << "old";
        QTest::newRow("the no-end version") << "abc" << 4 << NoEnd << abc0 << "abc";
        QTest::newRow("past the no-end version") << "abc" << 4 << NoEnd + 1 << none << "old";
        const int large = LargeSize;
        QTest::newRow("large, before blocks")
            << "abc" << large << BlockVersion - 1 << pad("abc", large) << "abc";
        QTest::newRow("under large, at blocks")
            << "abc" << large - 1 << BlockVersion << pad("abc", large - 1) << "abc";
        QTest::newRow("large: a UTF-8 block")
            << clef << large << BlockVersion << QByteArray("\x0a\0\0\0", 4) + clef.toUtf8() << clef;
    }
    void stringArchive()
    {
        QFETCH(QString, in);
        QFETCH(int, maxLen);
        QFETCH(uint, version);
        QFETCH(QByteArray, bytes);
        CStringField source(0, "", maxLen, 65536), back(0, "old", maxLen, 65536);
        source.m_text = in;
        QCOMPARE(storeBytes([&](MyDataStream& s) { source.Serialize(version, s); }), bytes);
        QCOMPARE(loadBytes(bytes + "tail", [&](MyDataStream& s) { back.Serialize(version, s); }),
                 qint64(bytes.size()));
        QTEST(QString(back.m_text), "loaded");
    }

    void versionRange_data()
    {
        QTest::addColumn<Field>("field");
        QTest::addColumn<uint>("version");
        QTest::addColumn<int>("bytes");
        const auto flag = [] { return Field(new CBoolFieldNotused(65536, NoEnd)); };
        const auto day = [] {
            return Field(new CDateField(QDate(2025, 3, 4), false, FIELD_ATTR_NONE, 0, 70000));
        };
        QTest::newRow("bool: one below the first") << flag() << 65535u << 0;
        QTest::newRow("bool: the first version") << flag() << 65536u << 4;
        QTest::newRow("bool: the no-end version") << flag() << NoEnd << 4;
        QTest::newRow("bool: one past no-end") << flag() << NoEnd + 1 << 0;
        QTest::newRow("date: one below its first") << day() << 69999u << 0;
        QTest::newRow("date: its first version") << day() << 70000u << 8;
    }
    void versionRange()
    {
        QFETCH(Field, field);
        QFETCH(uint, version);
        QTEST(int(storeBytes([&](MyDataStream& s) { field->Serialize(version, s); }).size()),
              "bytes");
    }

    void common_data()
    {
        QTest::addColumn<QString>("a");
        QTest::addColumn<Op>("op");
        QTest::addColumn<QString>("expected");
        // Two lists as "a|b": whether they differ.
        const Op differ = [](auto in, auto) {
            Fields a(in.section('|', 0, 0)), b(in.section('|', 1));
            return QString::number(Common_Func_OperatorNotEqual(a.ptrs, b.ptrs));
        };
        // Two lists as "from|to": the second after assignment.
        const Op assign = [](auto in, auto) {
            Fields from(in.section('|', 0, 0)), to(in.section('|', 1));
            Common_Func_OperatorAssign(from.ptrs, to.ptrs);
            return to.items();
        };
        const Op clear = [](auto in, auto) {
            Fields fields(in);
            Common_ClearData_Func(&fields.ptrs);
            return fields.items();
        };
        // Two lists as "from|to": the byte count, then the second after a round trip.
        const Op archive = [](auto in, auto) {
            Fields from(in.section('|', 0, 0)), to(in.section('|', 1));
            const QByteArray bytes
                = storeBytes([&](MyDataStream& s) { Common_Serialize_Func(65536, s, from.ptrs); });
            loadBytes(bytes, [&](MyDataStream& s) { Common_Serialize_Func(65536, s, to.ptrs); });
            return QString::number(bytes.size()) + ' ' + to.items();
        };
        QTest::newRow("the common part of unequal lengths") << "i1 i2 i3|i1 i2" << differ << "0";
        QTest::newRow("a difference after an equal pair") << "i1 i2|i1 i3" << differ << "1";
        QTest::newRow("bool 1 and 2 differ") << "b1|b2" << differ << "1";
        QTest::newRow("amounts by their tolerance") << "f10|f10.008" << differ << "0";
        QTest::newRow("texts by their blank rule") << "sa__b|s_a_b_" << differ << "0";
        QTest::newRow("dates by value") << "d20250101|d20250102" << differ << "1";
        QTest::newRow("date-times not compared") << "t1 i1|t2 i1" << differ << "0";
        QTest::newRow("types that do not pair differ") << "i0|f0" << differ << "1";
        QTest::newRow("null pointers passed over") << "- i1|i5 i1" << differ << "0";
        // Amounts copied unrounded, date-times not at all; an int does not pair with an amount.
        QTest::newRow("assign")
            << "i1 b2 f1.23456 ssrc d20250304 t1000 i9 i4|i0 b0 f0 sdst d19990101 t2000 f7 -"
            << assign << "i1 b2 f1.23456 ssrc d20250304 t2000 f7 -";
        QTest::newRow("clear: ints, dates and date-times kept")
            << "i1 b2 f1.5 stext d20250304 t1000" << clear << "i1 b0 f0 s d20250304 t1000";
        // Bool 2 stays 2; the date-time takes no bytes.
        QTest::newRow("archive")
            << "i7 b2 f2.5 sab d20250304 d t1000|i0 b0 f0 s d19990101 d19990101 t5" << archive
            << "52 i7 b2 f2.5 sab d20250304 d t5";
    }
    void common()
    {
        QFETCH(QString, a);
        QFETCH(Op, op);
        QTEST(op(a, 0), "expected");
    }
};

QTEST_MAIN(tst_TextFields)
#include "tst_textfields.moc"
