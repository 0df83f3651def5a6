#include "cintfield.h"
#include "contactdetails.h"
#include "cstringfield.h"

#include <QTest>

// A refusing row is acceptable in every respect but the one its name gives.

using S = QString;
using Check = bool (*)(const S&);
Q_DECLARE_METATYPE(Check)

namespace {

// 200000 letters and then "@", an accented letter, a NUL, "x.".
const S huge = S(200000, 'a') + S::fromUtf16(u"@\u00e9\0x.", 5);

// Bytes for `const char*` checks, null for null; temporaries as lvalues.
template<bool (*F)(const char*)> bool latin1(const S& s)
{
    return F(s.isNull() ? nullptr : s.toLatin1().constData());
}
template<bool (*F)(const CString&)> bool text(const S& s)
{
    return F(s);
}
const auto lv = [](CString&& s) -> CString& { return s; };

const Check name = latin1<CheckName>, ca = latin1<CheckCAPostCode>, us = latin1<CheckUSPostCode>;
const Check country = latin1<CheckCountryCode>, date = latin1<CheckDate>,
            emailBytes = latin1<checkEmail>;
const Check busi = text<CheckBusiName>, city = text<CheckCityName>, t2 = text<CheckT2ValidChar>;
const Check typed = text<ChkPhoneStrHasSomething>, phone = text<CheckPhoneNumber>;
const Check address = [](const S& s) { return CheckAddress(lv(s)); };
const Check co = [](const S& s) { return CheckAddrCO(lv(s)); };
const Check common = [](const S& s) { return CheckAddress_common(lv(s)); };
const Check zerosOk = [](const S& s) { return CheckPhoneNumber(s, true); };
const Check flat = [](const S& s) { return CheckPhoneFlatEditNumber(s, false); };
const Check email = [](const S& s) { return is_email_valid(lv(s)); };

// The codes from `first` to `last` for which `in` holds, as "20-7e 91 ...".
template<typename In> S rangesOf(int first, int last, In in)
{
    QStringList ranges;
    for (int c = first, from = -1; c <= last + 1; ++c) {
        const bool member = c <= last && in(c);
        if (member && from < 0)
            from = c;
        if (!member && from >= 0) {
            const S start = S::number(from, 16);
            ranges << (from == c - 1 ? start : start + '-' + S::number(c - 1, 16));
            from = -1;
        }
    }
    return ranges.join(' ');
}

} // namespace

class tst_ContactDetails : public QObject
{
    Q_OBJECT
private slots:
    // Whole sets as hex ranges: both ends of each range and one step outside.
    void characterSets_data()
    {
        QTest::addColumn<Check>("check");
        QTest::addColumn<S>("text"); // %1 is the character judged
        QTest::addColumn<int>("first");
        QTest::addColumn<int>("last");
        QTest::addColumn<S>("members");
        const S az = "41-5a 61-7a", azAccents = az + " c0-c4 c6-d4 d6-e4 e6-f4 f6-ff";
        // Name and address sets start at 1: a NUL byte ends the text.
        QTest::newRow("name: first") << name << "%1a" << 1 << 0xFF << azAccents;
        QTest::newRow("name: last") << name << "a%1" << 1 << 0xFF << "2d 30-39 " + azAccents;
        QTest::newRow("name: inside, not a list")
            << name << "a%1a" << 1 << 0xFF << "1-21 27 2d-2e 30-39 " + az + " 7f-ff";
        QTest::newRow("city") << city << "%1" << 0 << 0xFFFF << "20 27 2d-39 " + azAccents;
        // Blanks around a line are trimmed away before it is judged.
        QTest::newRow("address: first") << address << "%1a" << 1 << 0x7F << "9-d 20 30-39 " + az;
        QTest::newRow("address: last") << address << "a%1" << 1 << 0x7F << "9-d 20 2e 30-39 " + az;
        QTest::newRow("address: inside")
            << address << "a%1a" << 1 << 0x7F << "20 23 26-29 2c-39 " + az;
        QTest::newRow("c/o: inside") << co << "a%1a" << 1 << 0x7F << "20 26-27 2d-39 " + az;
    }
    void characterSets()
    {
        QFETCH(Check, check);
        QFETCH(S, text);
        QFETCH(int, first);
        QFETCH(int, last);
        QTEST(rangesOf(first, last, [&](int c) { return check(text.arg(QChar(c))); }), "members");
    }

    void predicates_data()
    {
        QTest::addColumn<Check>("check");
        QTest::addColumn<S>("input");
        QTest::addColumn<bool>("ok");
        QTest::newRow("name: null is empty") << name << S() << true;
        // The last byte of the UTF-8 sequence is A9, no letter and no diacritic.
        QTest::newRow("business: UTF-8 accent last") << busi << S("Jos\u00e9") << false;
        QTest::newRow("address: UTF-8 second byte") << address << S("Rue Montr\u00e9al") << false;
        QTest::newRow("address: length in characters") << address << S("Caf\u00e9") << true;
        QTest::newRow("address: 200000 characters") << address << huge << false;
        QTest::newRow("common: blank becomes empty") << common << S(" \t ") << true;
        QTest::newRow("common: C/O") << common << S("12 Main C/O Ann") << false;
        QTest::newRow("common: mixed case C/o") << common << S("12 Main C/o Ann") << true;
        QTest::newRow("CA: six, lower case") << ca << S("k1a0b1") << true;
        QTest::newRow("CA: space, what follows unread") << ca << S("K1A 0B1 Canada") << true;
        QTest::newRow("CA: underscore") << ca << S("K1A_0B1") << false;
        QTest::newRow("CA: five") << ca << S("K1A0B") << false;
        QTest::newRow("CA: six, digit first") << ca << S("11A0B1") << false;
        QTest::newRow("CA: seven, letter after the separator") << ca << S("K1A BB1") << false;
        QTest::newRow("US: five") << us << S("12345") << true;
        QTest::newRow("US: ZIP+4") << us << S("12345-6789") << true;
        QTest::newRow("US: six") << us << S("123456") << false;
        QTest::newRow("US: eleven") << us << S("12345-67890") << false;
        QTest::newRow("country: A and Z") << country << S("AZA") << true;
        QTest::newRow("country: '@' below A") << country << S("CA@") << false;
        QTest::newRow("country: '[' above Z") << country << S("CA[") << false;
        QTest::newRow("country: two letters") << country << S("CA") << false;
        QTest::newRow("phone: ten digits") << phone << S("(613) 555-0199") << true;
        QTest::newRow("phone: nine digits") << phone << S("613-555-019") << false;
        QTest::newRow("phone: ten zeros") << phone << S("(000) 000-0000") << false;
        QTest::newRow("phone: ten zeros allowed") << zerosOk << S("(000) 000-0000") << true;
        QTest::newRow("phone: only ASCII digits") << phone << S("613555019\u0661") << false;
        QTest::newRow("flat phone: letters around") << flat << S("tel:6135550199") << true;
        QTest::newRow("typed: one digit, padded right") << typed << S("5") << true;
        QTest::newRow("typed: digit tenth") << typed << S("0000000001") << true;
        QTest::newRow("typed: digit past the tenth") << typed << S("00000000001") << false;
        QTest::newRow("email: two-letter top level") << email << S("a@b.co") << true;
        QTest::newRow("email: one-letter top level") << email << S("a@b.c") << false;
        QTest::newRow("email: 200000 characters") << email << huge << false;
        QTest::newRow("email bytes: null") << emailBytes << S() << false;
        QTest::newRow("T2 text: every character") << t2 << S("5 \u20ac") << false;
        QTest::newRow("date: after eight unread") << date << S("20250101xyz") << true;
        QTest::newRow("date: seven digits") << date << S("2025010") << false;
    }
    void predicates()
    {
        QFETCH(Check, check);
        QFETCH(S, input);
        QTEST(check(input), "ok");
    }

    // Fields: number|street|city|region|country|postal code. validateAddr2 takes
    // a street address instead, ignores the number, and here a null suffix.
    void addressBlocks_data()
    {
        QTest::addColumn<bool>("two");
        QTest::addColumn<S>("fields");
        QTest::addColumn<S>("messages");
        QTest::newRow("8-character number") << false << S("12345678|Elm|Hull|9|1|K1A0B1") << S();
        QTest::newRow("9-character number")
            << false << S("123456789|Elm|Hull|9|1|K1A0B1") << S("[Street number/name*]");
        QTest::newRow("blank city") << false << S("12|Elm| |9|1|K1A0B1") << S("[City*]");
        QTest::newRow("US: no state, Canadian code")
            << false << S("12|Elm|Erie|0|2|K1A0B1") << S("[State*][Postal code*]");
        QTest::newRow("country 0: no postal check")
            << false << S("12|Elm|Hull|0|0|") << S("[Country*]");
        QTest::newRow("2: blank street")
            << true << S("|  |Erie|5|2|02101") << S("[Street address]");
    }
    void addressBlocks()
    {
        QFETCH(bool, two);
        QFETCH(S, fields);
        const QStringList f = fields.split('|');
        CStringField number(f[0].toLatin1().constData()), street(f[1].toLatin1().constData()),
            city(f[2].toLatin1().constData()), postal(f[5].toLatin1().constData());
        CIntField region(f[3].toInt()), country(f[4].toInt());
        long count = 5;
        std::list<CString> messages { "earlier" }; // appended to
        const long added = two ? validateAddr2(count, messages, street, number, city, region,
                                               country, postal, "[%s%s]", nullptr)
                               : validateAddr(count, messages, number, street, city, region,
                                              country, postal, "[%s%s]", "*");
        QCOMPARE(count, 5 + added);
        QCOMPARE(added, long(messages.size()) - 1);
        QTEST(QStringList(messages.begin(), messages.end()).join("").mid(7), "messages");
        QCOMPARE(messages.front(), CString("earlier"));
    }
};

QTEST_GUILESS_MAIN(tst_ContactDetails)
#include "tst_contactdetails.moc"
