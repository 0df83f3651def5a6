#include "dependantinfo.h"
#include "libbedrock_config.h"
#include "streambytes.h"

#include <QTest>

#include <cstring>
#include <functional>
#include <tuple>

namespace {

constexpr int Y = LIBBEDROCK_TAX_YEAR;
constexpr unsigned int Newest = 0x10300;

// First name, last name, birth date, relation, infirmity code, net income.
using DepRow = std::tuple<const char*, const char*, QDate, int, int, double>;

void fill(DependantInfoStruct& list, const std::vector<DepRow>& rows)
{
    list.AllocData(int(rows.size()));
    for (size_t i = 0; i < rows.size(); ++i) {
        _OneDependantInfoStru& row = list.m_pData[i];
        const auto& [first, last, birth, relation, infirm, income] = rows[i];
        std::strncpy(row.m_FirstName, first, 79);
        std::strncpy(row.m_LastName, last, 79);
        row.m_BirthDate = birth, row.m_Relation = relation, row.fld_Infirm = infirm;
        row.m_NetIncome = income;
    }
}

// Born `age` years before the tax year, mid-month, mid-year unless told.
QDate b(int age, int month = 6)
{
    return QDate(Y - age, month, 15);
}

template<typename T> QByteArray le(T v)
{
    return QByteArray(reinterpret_cast<const char*>(&v), sizeof v);
}

template<typename T> QByteArray stored(T& object, unsigned int version = Newest)
{
    return storeBytes([&](MyDataStream& s) { object.serilize(int(version), s); });
}

template<typename T> qint64 load(T& object, const QByteArray& bytes, unsigned int version = Newest)
{
    return loadBytes(bytes, [&](MyDataStream& s) { object.serilize(int(version), s); });
}

// The list's counts, then a question asked of its one row.
constexpr int Ages = 0, NotUnder = 1, Disabled = 2, Under18 = 3, Infirm = 4, Kids305 = 5,
              Others305 = 6, Med330 = 7;

int ask(DependantInfoStruct& l, int query, int a, int b)
{
    const std::function<int()> calls[] = {
        [&] { return l.GetDepNumberBetweenAges(a, b); },
        [&] { return l.GetInfirmDependantsNumberNotUnderAge(a); },
        [&] { return l.GetDisabledDependantsBetweenAges(a, b); },
        [&] { return l.GetInfirmDependentNumberUnderAge18(); },
        [&] { return l.GetDepChildrenNumberBetweenAges_Infirm(0, 0, a); },
        [&] { return l.GetDepChildrenNumberForLine305(); },
        [&] { return l.GetDepOtherThanChildrenNumberForLine305(); },
        [&] { return int(l.m_pData[0].IsMedExpForLine330()); },
    };
    return calls[query]();
}

using Change = std::function<void(_OneDependantInfoStru&)>;

} // namespace

Q_DECLARE_METATYPE(Change)

class tst_Dependants : public QObject
{
    Q_OBJECT
private slots:
    void comboText_data()
    {
        QTest::addColumn<QString>("names"); // first and last, a comma between
        QTest::addColumn<int>("relation");
        QTest::addColumn<int>("infirm");
        QTest::addColumn<QString>("text"); // "|" for the amount between
        QTest::newRow("relation 15 ends the table") << "Ann,Lee" << 15 << 0 << "Ann Lee - |Normal";
        QTest::newRow("negative relation") << "Ann,Lee" << -1 << 2 << "Ann Lee - |Disabled";
        QTest::newRow("infirm code past the table") << "Ann,Lee" << 1 << 3 << "Ann Lee - Daughter|";
    }
    // The birth date closes the text; blank names give no text.
    void comboText()
    {
        QFETCH(QString, names);
        QFETCH(int, relation);
        QFETCH(int, infirm);
        QFETCH(QString, text);
        const QByteArray first = names.section(',', 0, 0).toLatin1(),
                         last = names.section(',', 1).toLatin1();
        DependantInfoStruct list;
        fill(list,
             { { first.constData(), last.constData(), QDate(2010, 5, 3), relation, infirm,
                 1234.5 } });
        CString out("stale");
        QVERIFY(list.m_pData[0].MakeComboBoxString(out));
        QCOMPARE(QString(out).replace(" - net inc.($1234.50) -  - ", "|"), text + " - 2010-05-03");
        fill(list, { { "  ", " ", QDate(), relation, infirm, 0.0 } });
        QVERIFY(!list.m_pData[0].MakeComboBoxString(out));
        QCOMPARE(QString(out), QString());
    }

    void queries_data()
    {
        QTest::addColumn<int>("query");
        QTest::addColumn<QDate>("birth");
        QTest::addColumn<int>("relation");
        QTest::addColumn<int>("infirm");
        QTest::addColumn<int>("a"); // the query's arguments
        QTest::addColumn<int>("b");
        QTest::addColumn<int>("result");
        QTest::newRow("lower bound counts") << Ages << b(18) << 14 << 0 << 18 << 0 << 1;
        QTest::newRow("one below the lower bound") << Ages << b(17) << 14 << 0 << 18 << 0 << 0;
        QTest::newRow("upper bound counts") << Ages << b(18) << 14 << 0 << 0 << 18 << 1;
        QTest::newRow("one above the upper bound") << Ages << b(19) << 14 << 0 << 0 << 18 << 0;
        QTest::newRow("lower bound 1 is a bound") << Ages << b(0) << 14 << 0 << 1 << 0 << 0;
        QTest::newRow("upper bound 1 is a bound") << Ages << b(2) << 14 << 0 << 0 << 1 << 0;
        QTest::newRow("upper bound 0 is none") << Ages << b(19) << 14 << 0 << 0 << 0 << 1;
        QTest::newRow("born the year after") << Ages << b(-1) << 14 << 0 << 0 << 0 << 0;

        QTest::newRow("infirm: lower bound") << NotUnder << b(18) << 14 << 1 << 18 << 0 << 1;
        QTest::newRow("infirm: one below") << NotUnder << b(17) << 14 << 1 << 18 << 0 << 0;
        QTest::newRow("code 3 is not infirm") << NotUnder << b(30) << 14 << 3 << 0 << 0 << 0;

        QTest::newRow("disabled counts") << Disabled << b(30) << 14 << 2 << 0 << 0 << 1;
        QTest::newRow("disabled: one above") << Disabled << b(19) << 14 << 2 << 0 << 18 << 0;

        QTest::newRow("under 18: minor year") << Under18 << b(17) << 14 << 1 << 0 << 0 << 1;
        QTest::newRow("under 18: older") << Under18 << b(18) << 14 << 1 << 0 << 0 << 0;
        QTest::newRow("under 18: the tax year") << Under18 << b(0) << 14 << 1 << 0 << 0 << 1;
        QTest::newRow("under 18: year after") << Under18 << b(-1) << 14 << 1 << 0 << 0 << 0;

        QTest::newRow("infirm asked, infirm") << Infirm << b(10) << 14 << 1 << 1 << 0 << 1;
        QTest::newRow("normal asked, infirm") << Infirm << b(10) << 14 << 1 << 0 << 0 << 0;

        QTest::newRow("305: earliest minor year") << Kids305 << b(17) << 14 << 0 << 0 << 0 << 1;
        QTest::newRow("305: one year older") << Kids305 << b(18) << 14 << 0 << 0 << 0 << 0;
        QTest::newRow("305: older, infirm") << Kids305 << b(18) << 14 << 1 << 0 << 0 << 1;
        QTest::newRow("305: year after, infirm") << Kids305 << b(-1) << 0 << 1 << 0 << 0 << 0;

        QTest::newRow("daughter, below the parents") << Others305 << b(50) << 1 << 0 << 0 << 0 << 0;
        QTest::newRow("father, first parent") << Others305 << b(50) << 2 << 0 << 0 << 0 << 1;
        QTest::newRow("grandmother, last parent") << Others305 << b(50) << 5 << 0 << 0 << 0 << 1;
        QTest::newRow("grandson, above the parents") << Others305 << b(50) << 6 << 0 << 0 << 0 << 0;
        QTest::newRow("granddaughter, below") << Others305 << b(10) << 7 << 0 << 0 << 0 << 0;
        QTest::newRow("brother, first sibling") << Others305 << b(10) << 8 << 0 << 0 << 0 << 1;
        QTest::newRow("sister, last sibling") << Others305 << b(10) << 9 << 0 << 0 << 0 << 1;
        QTest::newRow("nephew, above the siblings") << Others305 << b(10) << 10 << 0 << 0 << 0 << 0;
        QTest::newRow("sister, earliest minor year") << Others305 << b(17) << 9 << 0 << 0 << 0 << 1;
        QTest::newRow("sister one year older") << Others305 << b(18) << 9 << 0 << 0 << 0 << 0;
        QTest::newRow("older sister, infirm") << Others305 << b(18) << 9 << 1 << 0 << 0 << 1;
        QTest::newRow("mother born the year after") << Others305 << b(-1) << 3 << 0 << 0 << 0 << 0;

        QTest::newRow("daughter, minor year") << Med330 << b(17) << 1 << 0 << 0 << 0 << 1;
        QTest::newRow("daughter one year older") << Med330 << b(18) << 1 << 0 << 0 << 0 << 0;
        QTest::newRow("father, one past daughter") << Med330 << b(10) << 2 << 0 << 0 << 0 << 0;
        QTest::newRow("no latest year") << Med330 << b(-1) << 0 << 0 << 0 << 0 << 1;
    }
    // One dependant; the list's counts take named rows only.
    void queries()
    {
        QFETCH(int, query);
        QFETCH(QDate, birth);
        QFETCH(int, relation);
        QFETCH(int, infirm);
        QFETCH(int, a);
        QFETCH(int, b);
        DependantInfoStruct list;
        fill(list, { { "Dep", "", birth, relation, infirm, 0.0 } });
        QTEST(ask(list, query, a, b), "result");
        if (query != Med330) {
            fill(list, { { " ", "  ", birth, relation, infirm, 0.0 } });
            QCOMPARE(ask(list, query, a, b), 0);
            list.FreeData();
            QCOMPARE(ask(list, query, a, b), 0);
        }
    }

    void rowEquality_data()
    {
        using R = _OneDependantInfoStru;
        QTest::addColumn<Change>("change");
        QTest::addColumn<bool>("equal");
        QTest::newRow("net income 0.008 apart")
            << Change([](R& r) { r.m_NetIncome += 0.008; }) << true;
        QTest::newRow("net income 0.01 apart")
            << Change([](R& r) { r.m_NetIncome += 0.01; }) << false;
        QTest::newRow("a field") << Change([](R& r) { r.fld_Addr = CString("1 Main"); }) << false;
    }
    void rowEquality()
    {
        QFETCH(Change, change);
        DependantInfoStruct list;
        fill(list, { { "Ann", "Lee", QDate(2010, 5, 3), 1, 0, 100.0 } });
        _OneDependantInfoStru copy;
        copy = list.m_pData[0];
        change(copy);
        QTEST(list.m_pData[0] == copy, "equal");
    }

    void readsOldLayouts_data()
    {
        QTest::addColumn<unsigned int>("version");
        QTest::addColumn<QByteArray>("dateBlock");
        QTest::addColumn<QDate>("date");
        QTest::addColumn<double>("income");
        QTest::newRow("0x10210: day number, a day late as ever")
            << 0x10210u << le(40301.5) << QDate(2010, 5, 4) << 1234.56;
        QTest::newRow("0x10211: text")
            << 0x10211u << QByteArray("20100503") << QDate(2010, 5, 3) << 1234.56;
        QTest::newRow("zero date: null") << 0x10211u << QByteArray(8, '\0') << QDate() << 1234.56;
        QTest::newRow("0x100b1: income as float")
            << 0x100b1u << le(0.0) << QDate() << double(float(1234.56));
        QTest::newRow("0x100b2: income as double") << 0x100b2u << le(0.0) << QDate() << 1234.56;
    }
    void readsOldLayouts()
    {
        QFETCH(unsigned int, version);
        QFETCH(QByteArray, dateBlock);
        // Then fld_Infirm; from 0x100c0 five floats, from 0x100db two strings of 80 and 160.
        const QByteArray bytes = QByteArray("Ann").leftJustified(80, '\0') + QByteArray(80, '\0')
            + le(qint32(7)) + dateBlock + le(qint32(3)) + le(1234.56) + le(qint32(2))
            + QByteArray(version > 0x100db ? 280 : 0, '\0');
        _OneDependantInfoStru row;
        QCOMPARE(load(row, bytes + "X", version), qint64(bytes.size()));
        QTEST(row.m_BirthDate, "date");
        QTEST(row.m_NetIncome, "income");
        QCOMPARE(row.m_Relation, 3);
        QCOMPARE(row.fld_Infirm.m_value, 2);
    }

    void fullNameKeepsItsTerminator()
    {
        const QByteArray bytes = QByteArray(80, 'A') + QByteArray(80, 'B') + le(qint32(0))
            + QByteArray(8, '\0') + le(qint32(0)) + le(0.0) + QByteArray(4 + 280, '\0');
        _OneDependantInfoStru row;
        load(row, bytes);
        QCOMPARE(std::strlen(row.m_FirstName), size_t(79));
        QCOMPARE(std::strlen(row.m_LastName), size_t(79));
    }

    void hostileCounts_data()
    {
        DependantInfoStruct two;
        fill(two,
             { { "Ann", "Lee", QDate(2010, 5, 3), 1, 1, 5.5 }, { "Bo", "", QDate(), 0, 0, 0 } });
        const QByteArray good = stored(two);
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("rows");
        QTest::addColumn<bool>("array");
        QTest::newRow("count 1 reads one row") << le(qint32(1)) + good.mid(4) << 1 << true;
        QTest::newRow("count 0: no array") << le(qint32(0)) + good.mid(4) << 0 << false;
        QTest::newRow("negative count: no array") << le(qint32(-5)) + good.mid(4) << 0 << false;
        QTest::newRow("huge count, few bytes")
            << le(qint32(0x7fffffff)) + good.mid(4, 100) << 0 << true;
        QTest::newRow("cut in the second row") << good.left(good.size() - 100) << 1 << true;
        QTest::newRow("count beyond the rows") << le(qint32(1000)) + good.mid(4) << 2 << true;
    }
    void hostileCounts()
    {
        QFETCH(QByteArray, bytes);
        DependantInfoStruct list;
        fill(list, std::vector<DepRow>(3, { "Old", "", QDate(), 0, 0, 0.0 }));
        load(list, bytes);
        QTEST(list.m_nCount, "rows");
        QTEST(list.m_pData != nullptr, "array");
        if (list.m_nCount > 0)
            QCOMPARE(QByteArray(list.m_pData[0].m_FirstName), QByteArray("Ann"));
    }
};

QTEST_GUILESS_MAIN(tst_Dependants)
#include "tst_dependants.moc"
