#include "dependantinfo.h"
#include "libbedrock_config.h"
#include "streambytes.h"

#include <QTest>

#include <cstring>
#include <functional>

namespace {

constexpr int Y = LIBBEDROCK_TAX_YEAR;
constexpr unsigned int Newest = 0x10300;

struct RowSpec {
    const char* first;
    const char* last;
    QDate birth;
    int relation, infirm;
    double income;
};

void fill(DependantInfoStruct& list, const std::vector<RowSpec>& rows)
{
    list.AllocData(int(rows.size()));
    for (size_t i = 0; i < rows.size(); ++i) {
        _OneDependantInfoStru& row = list.m_pData[i];
        std::strncpy(row.m_FirstName, rows[i].first, 79);
        std::strncpy(row.m_LastName, rows[i].last, 79);
        row.m_BirthDate = rows[i].birth;
        row.m_Relation = rows[i].relation;
        row.fld_Infirm = rows[i].infirm;
        row.m_NetIncome = rows[i].income;
    }
}

// A list of one named dependant: what each count of the queries needs.
void oneDependant(DependantInfoStruct& list, QDate birth, int relation, int infirm)
{
    fill(list, { { "Dep", "", birth, relation, infirm, 0.0 } });
}

// Mid-year, so that only the year can decide.
QDate born(int year)
{
    return QDate(year, 6, 15);
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

enum Query {
    InfirmNotUnderAge,
    DisabledBetweenAges,
    InfirmUnder18,
    ChildrenBetweenAges,
    NumberBetweenAges,
    ChildrenBetweenAgesInfirm,
    ByRelation,
    ChildrenForLine305,
    OthersForLine305,
    MonthsAtAge,
};

using Change = std::function<void(_OneDependantInfoStru&)>;

} // namespace

Q_DECLARE_METATYPE(Change)

class tst_Dependants : public QObject
{
    Q_OBJECT
private slots:
    void comboText_data();
    void comboText();
    void getName_data();
    void getName();
    void getAge_data();
    void getAge();
    void medExpForLine330_data();
    void medExpForLine330();
    void netIncomeWithAdjustment_data();
    void netIncomeWithAdjustment();
    void rowEquality_data();
    void rowEquality();

    void readsOldLayouts_data();
    void readsOldLayouts();
    void fullNameKeepsItsTerminator();
    void writesNewestLayout();
    void hostileCounts_data();
    void hostileCounts();

    void onlyNamedRowsCount_data();
    void onlyNamedRowsCount();
    void betweenAges_data();
    void betweenAges();
    void infirmNotUnderAge_data();
    void infirmNotUnderAge();
    void disabledBetweenAges_data();
    void disabledBetweenAges();
    void infirmUnder18_data();
    void infirmUnder18();
    void betweenAgesInfirm_data();
    void betweenAgesInfirm();
    void byRelation_data();
    void byRelation();
    void childrenForLine305_data();
    void childrenForLine305();
    void othersForLine305_data();
    void othersForLine305();
    void monthsAtAge_data();
    void monthsAtAge();
    void monthsAddUp();
    void validateIndex_data();
    void validateIndex();
};

void tst_Dependants::comboText_data()
{
    QTest::addColumn<QByteArray>("first");
    QTest::addColumn<QByteArray>("last");
    QTest::addColumn<int>("relation");
    QTest::addColumn<int>("infirm");
    QTest::addColumn<QDate>("birth");
    QTest::addColumn<QString>("text"); // empty: no row

    const QString tail = " - net inc.($1234.50) -  - Normal";
    QTest::newRow("first name only: last name placeholder")
        << QByteArray("Ann") << QByteArray() << 1 << 0 << QDate()
        << "Ann <LastName> - Daughter" + tail;
    QTest::newRow("last name only: first name placeholder")
        << QByteArray() << QByteArray("Lee") << 1 << 0 << QDate()
        << "<FirstName> Lee - Daughter" + tail;
    QTest::newRow("names trimmed at both ends") << QByteArray("  Ann ") << QByteArray(" Lee  ") << 1
                                                << 0 << QDate() << "Ann Lee - Daughter" + tail;
    QTest::newRow("valid birth date appended")
        << QByteArray("Ann") << QByteArray("Lee") << 1 << 0 << QDate(2010, 5, 3)
        << "Ann Lee - Daughter" + tail + " - 2010-05-03";
    QTest::newRow("disabled named") << QByteArray("Ann") << QByteArray("Lee") << 1 << 2 << QDate()
                                    << "Ann Lee - Daughter - net inc.($1234.50) -  - Disabled";
    QTest::newRow("infirm code past the table has no name")
        << QByteArray("Ann") << QByteArray("Lee") << 1 << 3 << QDate()
        << "Ann Lee - Daughter - net inc.($1234.50) -  - ";
    QTest::newRow("Other, the last named relation")
        << QByteArray("Ann") << QByteArray("Lee") << 14 << 0 << QDate() << "Ann Lee - Other" + tail;
    QTest::newRow("relation 15 ends the table: no name")
        << QByteArray("Ann") << QByteArray("Lee") << 15 << 0 << QDate() << "Ann Lee - " + tail;
    QTest::newRow("relation past the table: no name")
        << QByteArray("Ann") << QByteArray("Lee") << 16 << 0 << QDate() << "Ann Lee - " + tail;
    QTest::newRow("negative relation: no name")
        << QByteArray("Ann") << QByteArray("Lee") << -1 << 0 << QDate() << "Ann Lee - " + tail;
    QTest::newRow("blank names: no row")
        << QByteArray("   ") << QByteArray(" ") << 1 << 0 << QDate() << QString();
}

void tst_Dependants::comboText()
{
    QFETCH(QByteArray, first);
    QFETCH(QByteArray, last);
    QFETCH(int, relation);
    QFETCH(int, infirm);
    QFETCH(QDate, birth);
    QFETCH(QString, text);
    DependantInfoStruct list;
    fill(list, { { first.constData(), last.constData(), birth, relation, infirm, 1234.5 } });
    CString out("stale");
    QCOMPARE(list.m_pData[0].MakeComboBoxString(out), !text.isEmpty());
    QCOMPARE(QString(out), text);
}

void tst_Dependants::getName_data()
{
    QTest::addColumn<QByteArray>("first");
    QTest::addColumn<QByteArray>("last");
    QTest::addColumn<QString>("name");
    QTest::newRow("both names") << QByteArray("Ann") << QByteArray("Lee") << "Ann Lee";
    QTest::newRow("trimmed at both ends") << QByteArray(" Ann ") << QByteArray() << "Ann";
    QTest::newRow("blank names") << QByteArray("  ") << QByteArray(" ") << "<unknown name>";
}

void tst_Dependants::getName()
{
    QFETCH(QByteArray, first);
    QFETCH(QByteArray, last);
    DependantInfoStruct list;
    fill(list, { { first.constData(), last.constData(), QDate(), 0, 0, 0.0 } });
    CString out("stale");
    list.m_pData[0].getName(out);
    QTEST(QString(out), "name");
}

void tst_Dependants::getAge_data()
{
    QTest::addColumn<QDate>("birth");
    QTest::addColumn<int>("age");
    QTest::newRow("null date is as old as the tax year") << QDate() << LIBBEDROCK_TAX_YEAR;
    QTest::newRow("born in the tax year") << QDate(Y, 12, 31) << 0;
    QTest::newRow("calendar year only") << QDate(Y - 18, 12, 31) << 18;
    QTest::newRow("born the year after") << QDate(Y + 1, 1, 1) << -1;
}

void tst_Dependants::getAge()
{
    QFETCH(QDate, birth);
    DependantInfoStruct list;
    oneDependant(list, birth, 0, 0);
    QTEST(list.m_pData[0].getAge(), "age");
}

void tst_Dependants::medExpForLine330_data()
{
    QTest::addColumn<QDate>("birth");
    QTest::addColumn<int>("relation");
    QTest::addColumn<bool>("counts");
    QTest::newRow("daughter born in the earliest minor year") << born(Y - 17) << 1 << true;
    QTest::newRow("daughter one year older") << born(Y - 18) << 1 << false;
    QTest::newRow("son") << born(Y - 10) << 0 << true;
    QTest::newRow("father, one past daughter") << born(Y - 10) << 2 << false;
    QTest::newRow("negative relation is a large unsigned") << born(Y - 10) << -1 << false;
    QTest::newRow("no latest year: born the year after") << born(Y + 1) << 0 << true;
}

void tst_Dependants::medExpForLine330()
{
    QFETCH(QDate, birth);
    QFETCH(int, relation);
    DependantInfoStruct list;
    oneDependant(list, birth, relation, 0);
    QTEST(list.m_pData[0].IsMedExpForLine330(), "counts");
}

void tst_Dependants::netIncomeWithAdjustment_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<double>("income");
    QTest::newRow("first row") << 0 << 100.25;
    QTest::newRow("last row") << 1 << 200.25;
    QTest::newRow("index equal to the count") << 2 << 0.0;
    QTest::newRow("negative index") << -1 << 0.0;
}

void tst_Dependants::netIncomeWithAdjustment()
{
    QFETCH(int, index);
    DependantInfoStruct list;
    fill(list, { { "A", "", QDate(), 0, 0, 100.0 }, { "B", "", QDate(), 0, 0, 200.0 } });
    list.F185Adjustment.m_value = 0.25;
    QTEST(list.GetDepNetIncConsideringF185(index), "income");
}

void tst_Dependants::rowEquality_data()
{
    using R = _OneDependantInfoStru;
    QTest::addColumn<Change>("change");
    QTest::addColumn<bool>("equal");
    QTest::newRow("copy is equal") << Change([](R&) {}) << true;
    QTest::newRow("net income 0.008 apart is equal")
        << Change([](R& r) { r.m_NetIncome += 0.008; }) << true;
    QTest::newRow("net income 0.01 apart differs")
        << Change([](R& r) { r.m_NetIncome += 0.01; }) << false;
    QTest::newRow("first name differs") << Change([](R& r) { r.m_FirstName[0] = 'a'; }) << false;
    QTest::newRow("last name differs") << Change([](R& r) { r.m_LastName[0] = 'l'; }) << false;
    QTest::newRow("birth date differs")
        << Change([](R& r) { r.m_BirthDate = r.m_BirthDate.addDays(1); }) << false;
    QTest::newRow("relation differs") << Change([](R& r) { r.m_Relation = 2; }) << false;
    QTest::newRow("a field differs")
        << Change([](R& r) { r.fld_Addr = CString("1 Main"); }) << false;
}

void tst_Dependants::rowEquality()
{
    QFETCH(Change, change);
    DependantInfoStruct list;
    fill(list, { { "Ann", "Lee", QDate(2010, 5, 3), 1, 0, 100.0 } });
    _OneDependantInfoStru copy;
    copy = list.m_pData[0];
    change(copy);
    QTEST(list.m_pData[0] == copy, "equal");
}

void tst_Dependants::readsOldLayouts_data()
{
    QTest::addColumn<unsigned int>("version");
    QTest::addColumn<QByteArray>("dateBlock");
    QTest::addColumn<QByteArray>("incomeBlock");
    QTest::addColumn<QDate>("date");
    QTest::addColumn<double>("income");
    const QByteArray income = le(1234.56);
    QTest::newRow("0x10210: day number, read a day late as ever")
        << 0x10210u << le(40301.5) << income << QDate(2010, 5, 4) << 1234.56;
    QTest::newRow("0x10211: text")
        << 0x10211u << QByteArray("20100503") << income << QDate(2010, 5, 3) << 1234.56;
    QTest::newRow("zero date block: null date")
        << 0x10211u << QByteArray(8, '\0') << income << QDate() << 1234.56;
    QTest::newRow("0x100b1: income narrowed to float")
        << 0x100b1u << le(0.0) << income << QDate() << double(float(1234.56));
    QTest::newRow("0x100b2: income as double")
        << 0x100b2u << le(0.0) << income << QDate() << 1234.56;
}

void tst_Dependants::readsOldLayouts()
{
    QFETCH(unsigned int, version);
    QFETCH(QByteArray, dateBlock);
    QFETCH(QByteArray, incomeBlock);
    // Then fld_Infirm; from 0x100c0 five floats, from 0x100db two strings of 80 and 160.
    const QByteArray bytes = QByteArray("Ann").leftJustified(80, '\0') + QByteArray(80, '\0')
        + le(qint32(7)) + dateBlock + le(qint32(3)) + incomeBlock + le(qint32(2))
        + QByteArray(version > 0x100db ? 280 : 0, '\0');
    _OneDependantInfoStru row;
    QCOMPARE(load(row, bytes + "X", version), qint64(bytes.size()));
    QTEST(row.m_BirthDate, "date");
    QTEST(row.m_NetIncome, "income");
    QCOMPARE(row.m_Relation, 3);
    QCOMPARE(row.fld_Infirm.m_value, 2);
}

void tst_Dependants::fullNameKeepsItsTerminator()
{
    const QByteArray bytes = QByteArray(80, 'A') + QByteArray(80, 'B') + le(qint32(0))
        + QByteArray(8, '\0') + le(qint32(0)) + le(0.0) + QByteArray(4 + 280, '\0');
    _OneDependantInfoStru row;
    load(row, bytes);
    QCOMPARE(std::strlen(row.m_FirstName), size_t(79));
    QCOMPARE(std::strlen(row.m_LastName), size_t(79));
}

void tst_Dependants::writesNewestLayout()
{
    DependantInfoStruct list;
    fill(list, { { "Ann", "Lee", QDate(2010, 5, 3), 1, 0, 5.5 }, { "Bo", "", QDate(), 0, 0, 0 } });
    // For an old version too the head is the newest; only the fields follow the version.
    const QByteArray old = stored(list, 0x100b1);
    QCOMPARE(old.size(), 4 + 2 * (184 + 4));
    QCOMPARE(old.mid(4 + 164, 8), QByteArray("20100503"));
    QCOMPARE(old.mid(4 + 176, 8), le(5.5));
    QCOMPARE(old.mid(4 + 188 + 164, 8), QByteArray(8, '\0'));
    const QByteArray bytes = stored(list);
    QCOMPARE(bytes.size(), 4 + 2 * (184 + 284) + 10 * 8);
    DependantInfoStruct back;
    load(back, bytes);
    QVERIFY(back == list);
    back.m_pData[1].fld_Addr = CString("changed");
    QVERIFY(!(back == list));
}

void tst_Dependants::hostileCounts_data()
{
    DependantInfoStruct two;
    fill(two, { { "Ann", "Lee", QDate(2010, 5, 3), 1, 1, 5.5 }, { "Bo", "", QDate(), 0, 0, 0 } });
    const QByteArray good = stored(two);
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("rows");
    QTest::addColumn<bool>("array");
    QTest::newRow("intact") << good << 2 << true;
    QTest::newRow("count 1 reads one row") << le(qint32(1)) + good.mid(4) << 1 << true;
    QTest::newRow("count 0: no rows, no array") << le(qint32(0)) + good.mid(4) << 0 << false;
    QTest::newRow("negative count: no rows, no array")
        << le(qint32(-5)) + good.mid(4) << 0 << false;
    QTest::newRow("huge count, few bytes")
        << le(qint32(0x7fffffff)) + good.mid(4, 100) << 0 << true;
    QTest::newRow("cut in the second row") << good.left(good.size() - 100) << 1 << true;
    QTest::newRow("count beyond the rows") << le(qint32(1000)) + good.mid(4) << 2 << true;
}

void tst_Dependants::hostileCounts()
{
    QFETCH(QByteArray, bytes);
    DependantInfoStruct list;
    fill(list, std::vector<RowSpec>(3, { "Old", "", QDate(), 0, 0, 0 }));
    load(list, bytes);
    QTEST(list.m_nCount, "rows");
    QTEST(list.m_pData != nullptr, "array");
    if (list.m_nCount > 0)
        QCOMPARE(QByteArray(list.m_pData[0].m_FirstName), QByteArray("Ann"));
}

static int ask(DependantInfoStruct& list, Query query)
{
    switch (query) {
    case InfirmNotUnderAge:
        return list.GetInfirmDependantsNumberNotUnderAge(0);
    case DisabledBetweenAges:
        return list.GetDisabledDependantsBetweenAges(0, 0);
    case InfirmUnder18:
        return list.GetInfirmDependentNumberUnderAge18();
    case ChildrenBetweenAges:
        return list.GetDepChildrenNumberBetweenAges(0, 0);
    case NumberBetweenAges:
        return list.GetDepNumberBetweenAges(0, 0);
    case ChildrenBetweenAgesInfirm:
        return list.GetDepChildrenNumberBetweenAges_Infirm(0, 0, true);
    case ByRelation:
        return list.GetDepNumberBetweenAgesAndRelation(0, 0, 9);
    case ChildrenForLine305:
        return list.GetDepChildrenNumberForLine305();
    case OthersForLine305:
        return list.GetDepOtherThanChildrenNumberForLine305();
    case MonthsAtAge:
        return list.GetMonthsDepChildrenAtAge_Infirm(10);
    }
    return -1;
}

// A disabled sister of ten born in May passes every filter; only her name decides.
void tst_Dependants::onlyNamedRowsCount_data()
{
    QTest::addColumn<int>("query");
    QTest::addColumn<int>("named");
    QTest::newRow("infirm, not under an age") << int(InfirmNotUnderAge) << 1;
    QTest::newRow("disabled between ages") << int(DisabledBetweenAges) << 1;
    QTest::newRow("infirm under 18") << int(InfirmUnder18) << 1;
    QTest::newRow("children between ages") << int(ChildrenBetweenAges) << 1;
    QTest::newRow("number between ages") << int(NumberBetweenAges) << 1;
    QTest::newRow("between ages, infirm") << int(ChildrenBetweenAgesInfirm) << 1;
    QTest::newRow("by relation") << int(ByRelation) << 1;
    QTest::newRow("children for line 305") << int(ChildrenForLine305) << 1;
    QTest::newRow("others for line 305") << int(OthersForLine305) << 1;
    QTest::newRow("months at an age") << int(MonthsAtAge) << 5;
}

void tst_Dependants::onlyNamedRowsCount()
{
    QFETCH(int, query);
    DependantInfoStruct list;
    QCOMPARE(ask(list, Query(query)), 0);
    fill(list, { { "Sis", "", QDate(Y - 10, 5, 1), 9, 2, 0.0 } });
    QTEST(ask(list, Query(query)), "named");
    fill(list, { { "  ", " ", QDate(Y - 10, 5, 1), 9, 2, 0.0 } });
    QCOMPARE(ask(list, Query(query)), 0);
}

void tst_Dependants::betweenAges_data()
{
    QTest::addColumn<QDate>("birth");
    QTest::addColumn<int>("minAge");
    QTest::addColumn<int>("maxAge");
    QTest::addColumn<int>("count");
    QTest::newRow("lower bound counts") << born(Y - 18) << 18 << 0 << 1;
    QTest::newRow("one below the lower bound does not") << born(Y - 17) << 18 << 0 << 0;
    QTest::newRow("upper bound counts") << born(Y - 18) << 0 << 18 << 1;
    QTest::newRow("one above the upper bound does not") << born(Y - 19) << 0 << 18 << 0;
    QTest::newRow("lower bound 1 is a bound") << born(Y) << 1 << 0 << 0;
    QTest::newRow("upper bound 1 is a bound") << born(Y - 2) << 0 << 1 << 0;
    QTest::newRow("upper bound 0 is no bound") << born(Y - 19) << 0 << 0 << 1;
    QTest::newRow("negative upper bound is no bound") << born(Y - 19) << 0 << -1 << 1;
    QTest::newRow("null date, no bounds: counts") << QDate() << 0 << 0 << 1;
    QTest::newRow("null date is older than 18") << QDate() << 0 << 18 << 0;
    QTest::newRow("born in the tax year counts") << born(Y) << 0 << 0 << 1;
    QTest::newRow("born the year after does not") << born(Y + 1) << 0 << 0 << 0;
}

// The children's count has no relation test: both give the same answer.
void tst_Dependants::betweenAges()
{
    QFETCH(QDate, birth);
    QFETCH(int, minAge);
    QFETCH(int, maxAge);
    DependantInfoStruct list;
    oneDependant(list, birth, 14, 0);
    QTEST(list.GetDepNumberBetweenAges(minAge, maxAge), "count");
    QTEST(list.GetDepChildrenNumberBetweenAges(minAge, maxAge), "count");
}

void tst_Dependants::infirmNotUnderAge_data()
{
    QTest::addColumn<QDate>("birth");
    QTest::addColumn<int>("infirm");
    QTest::addColumn<int>("minAge");
    QTest::addColumn<int>("count");
    QTest::newRow("lower bound counts") << born(Y - 18) << 1 << 18 << 1;
    QTest::newRow("one below the lower bound does not") << born(Y - 17) << 1 << 18 << 0;
    QTest::newRow("lower bound 1 is a bound") << born(Y) << 1 << 1 << 0;
    QTest::newRow("no upper bound") << born(Y - 90) << 1 << 18 << 1;
    QTest::newRow("disabled is infirm") << born(Y - 30) << 2 << 0 << 1;
    QTest::newRow("normal is not") << born(Y - 30) << 0 << 0 << 0;
    QTest::newRow("code 3 is not infirm") << born(Y - 30) << 3 << 0 << 0;
    QTest::newRow("born in the tax year counts") << born(Y) << 1 << 0 << 1;
    QTest::newRow("born the year after does not") << born(Y + 1) << 1 << 0 << 0;
}

void tst_Dependants::infirmNotUnderAge()
{
    QFETCH(QDate, birth);
    QFETCH(int, infirm);
    QFETCH(int, minAge);
    DependantInfoStruct list;
    oneDependant(list, birth, 14, infirm);
    QTEST(list.GetInfirmDependantsNumberNotUnderAge(minAge), "count");
}

void tst_Dependants::disabledBetweenAges_data()
{
    QTest::addColumn<QDate>("birth");
    QTest::addColumn<int>("infirm");
    QTest::addColumn<int>("minAge");
    QTest::addColumn<int>("maxAge");
    QTest::addColumn<int>("count");
    QTest::newRow("disabled counts") << born(Y - 30) << 2 << 0 << 0 << 1;
    QTest::newRow("infirm is not disabled") << born(Y - 30) << 1 << 0 << 0 << 0;
    QTest::newRow("code 3 is not disabled") << born(Y - 30) << 3 << 0 << 0 << 0;
    QTest::newRow("lower bound counts") << born(Y - 18) << 2 << 18 << 0 << 1;
    QTest::newRow("one below the lower bound does not") << born(Y - 17) << 2 << 18 << 0 << 0;
    QTest::newRow("upper bound counts") << born(Y - 18) << 2 << 0 << 18 << 1;
    QTest::newRow("one above the upper bound does not") << born(Y - 19) << 2 << 0 << 18 << 0;
    QTest::newRow("born the year after does not") << born(Y + 1) << 2 << 0 << 0 << 0;
}

void tst_Dependants::disabledBetweenAges()
{
    QFETCH(QDate, birth);
    QFETCH(int, infirm);
    QFETCH(int, minAge);
    QFETCH(int, maxAge);
    DependantInfoStruct list;
    oneDependant(list, birth, 14, infirm);
    QTEST(list.GetDisabledDependantsBetweenAges(minAge, maxAge), "count");
}

void tst_Dependants::infirmUnder18_data()
{
    QTest::addColumn<QDate>("birth");
    QTest::addColumn<int>("infirm");
    QTest::addColumn<int>("count");
    QTest::newRow("earliest minor birth year counts") << born(Y - 17) << 1 << 1;
    QTest::newRow("one year older does not") << born(Y - 18) << 1 << 0;
    QTest::newRow("born in the tax year counts") << born(Y) << 1 << 1;
    QTest::newRow("born the year after does not") << born(Y + 1) << 1 << 0;
    QTest::newRow("disabled is infirm") << born(Y - 5) << 2 << 1;
    QTest::newRow("normal is not") << born(Y - 5) << 0 << 0;
    QTest::newRow("null date is year 0") << QDate() << 1 << 0;
}

void tst_Dependants::infirmUnder18()
{
    QFETCH(QDate, birth);
    QFETCH(int, infirm);
    DependantInfoStruct list;
    oneDependant(list, birth, 14, infirm);
    QTEST(list.GetInfirmDependentNumberUnderAge18(), "count");
}

void tst_Dependants::betweenAgesInfirm_data()
{
    QTest::addColumn<QDate>("birth");
    QTest::addColumn<int>("infirm");
    QTest::addColumn<int>("minAge");
    QTest::addColumn<int>("maxAge");
    QTest::addColumn<bool>("wantInfirm");
    QTest::addColumn<int>("count");
    QTest::newRow("infirm asked, infirm counts") << born(Y - 10) << 1 << 0 << 0 << true << 1;
    QTest::newRow("infirm asked, normal does not") << born(Y - 10) << 0 << 0 << 0 << true << 0;
    QTest::newRow("not infirm asked, normal counts") << born(Y - 10) << 0 << 0 << 0 << false << 1;
    QTest::newRow("not infirm asked, infirm does not") << born(Y - 10) << 1 << 0 << 0 << false << 0;
    QTest::newRow("disabled is infirm") << born(Y - 10) << 2 << 0 << 0 << true << 1;
    QTest::newRow("code 3 is not infirm") << born(Y - 10) << 3 << 0 << 0 << false << 1;
    QTest::newRow("lower bound counts") << born(Y - 18) << 0 << 18 << 0 << false << 1;
    QTest::newRow("one below the lower bound does not")
        << born(Y - 17) << 0 << 18 << 0 << false << 0;
    QTest::newRow("upper bound counts") << born(Y - 18) << 0 << 0 << 18 << false << 1;
    QTest::newRow("one above the upper bound does not")
        << born(Y - 19) << 0 << 0 << 18 << false << 0;
    QTest::newRow("born the year after does not") << born(Y + 1) << 0 << 0 << 0 << false << 0;
}

void tst_Dependants::betweenAgesInfirm()
{
    QFETCH(QDate, birth);
    QFETCH(int, infirm);
    QFETCH(int, minAge);
    QFETCH(int, maxAge);
    QFETCH(bool, wantInfirm);
    DependantInfoStruct list;
    oneDependant(list, birth, 14, infirm);
    QTEST(list.GetDepChildrenNumberBetweenAges_Infirm(minAge, maxAge, wantInfirm), "count");
}

void tst_Dependants::byRelation_data()
{
    QTest::addColumn<QDate>("birth");
    QTest::addColumn<int>("rowRelation");
    QTest::addColumn<int>("relation");
    QTest::addColumn<int>("count");
    QTest::newRow("same relation counts") << born(Y - 30) << 3 << 3 << 1;
    QTest::newRow("another relation does not") << born(Y - 30) << 3 << 4 << 0;
    QTest::newRow("born the year after still counts") << born(Y + 1) << 0 << 0 << 1;
}

// The two ages are passed and ignored.
void tst_Dependants::byRelation()
{
    QFETCH(QDate, birth);
    QFETCH(int, rowRelation);
    QFETCH(int, relation);
    DependantInfoStruct list;
    oneDependant(list, birth, rowRelation, 0);
    QTEST(list.GetDepNumberBetweenAgesAndRelation(50, 60, relation), "count");
}

void tst_Dependants::childrenForLine305_data()
{
    QTest::addColumn<QDate>("birth");
    QTest::addColumn<int>("relation");
    QTest::addColumn<int>("infirm");
    QTest::addColumn<int>("count");
    QTest::newRow("earliest minor birth year counts") << born(Y - 17) << 14 << 0 << 1;
    QTest::newRow("one year older does not") << born(Y - 18) << 14 << 0 << 0;
    QTest::newRow("older but infirm counts") << born(Y - 18) << 14 << 1 << 1;
    QTest::newRow("older but disabled counts") << born(Y - 18) << 14 << 2 << 1;
    QTest::newRow("older with code 3 does not") << born(Y - 18) << 14 << 3 << 0;
    QTest::newRow("no relation test: a nephew counts") << born(Y - 15) << 10 << 0 << 1;
    QTest::newRow("infirm grandfather born 1940 counts") << QDate(1940, 1, 1) << 4 << 1 << 1;
    QTest::newRow("born in the tax year counts") << born(Y) << 0 << 0 << 1;
    QTest::newRow("born the year after does not, infirm or not") << born(Y + 1) << 0 << 1 << 0;
}

void tst_Dependants::childrenForLine305()
{
    QFETCH(QDate, birth);
    QFETCH(int, relation);
    QFETCH(int, infirm);
    DependantInfoStruct list;
    oneDependant(list, birth, relation, infirm);
    QTEST(list.GetDepChildrenNumberForLine305(), "count");
}

void tst_Dependants::othersForLine305_data()
{
    QTest::addColumn<int>("relation");
    QTest::addColumn<QDate>("birth");
    QTest::addColumn<int>("infirm");
    QTest::addColumn<int>("count");
    // Adults in good health: only the relation decides.
    QTest::newRow("son is no parent") << 0 << born(Y - 50) << 0 << 0;
    QTest::newRow("daughter, one below the parents") << 1 << born(Y - 50) << 0 << 0;
    QTest::newRow("father, first of the parents") << 2 << born(Y - 50) << 0 << 1;
    QTest::newRow("grandmother, last of the parents") << 5 << born(Y - 50) << 0 << 1;
    QTest::newRow("grandson, one above the parents") << 6 << born(Y - 50) << 0 << 0;
    // Minors: a sibling counts by relation alone.
    QTest::newRow("granddaughter, one below the siblings") << 7 << born(Y - 10) << 0 << 0;
    QTest::newRow("brother, first of the siblings") << 8 << born(Y - 10) << 0 << 1;
    QTest::newRow("sister, last of the siblings") << 9 << born(Y - 10) << 0 << 1;
    QTest::newRow("nephew, one above the siblings") << 10 << born(Y - 10) << 0 << 0;
    QTest::newRow("Other is neither") << 14 << born(Y - 10) << 0 << 0;
    // A sibling's age or health.
    QTest::newRow("sister in the earliest minor birth year") << 9 << born(Y - 17) << 0 << 1;
    QTest::newRow("sister one year older") << 9 << born(Y - 18) << 0 << 0;
    QTest::newRow("older sister, infirm") << 9 << born(Y - 18) << 1 << 1;
    QTest::newRow("older brother, disabled") << 8 << born(Y - 40) << 2 << 1;
    QTest::newRow("older brother, code 3") << 8 << born(Y - 40) << 3 << 0;
    QTest::newRow("mother born the year after") << 3 << born(Y + 1) << 0 << 0;
    QTest::newRow("sister born the year after") << 9 << born(Y + 1) << 0 << 0;
}

void tst_Dependants::othersForLine305()
{
    QFETCH(int, relation);
    QFETCH(QDate, birth);
    QFETCH(int, infirm);
    DependantInfoStruct list;
    oneDependant(list, birth, relation, infirm);
    QTEST(list.GetDepOtherThanChildrenNumberForLine305(), "count");
}

void tst_Dependants::monthsAtAge_data()
{
    QTest::addColumn<QDate>("birth");
    QTest::addColumn<int>("infirm");
    QTest::addColumn<int>("age");
    QTest::addColumn<int>("months");
    QTest::newRow("at the age: the birth month") << QDate(Y - 15, 3, 1) << 0 << 15 << 3;
    QTest::newRow("December adds 12") << QDate(Y - 15, 12, 31) << 0 << 15 << 12;
    QTest::newRow("one year younger adds nothing") << QDate(Y - 14, 3, 1) << 0 << 15 << 0;
    QTest::newRow("one year older adds nothing") << QDate(Y - 16, 3, 1) << 0 << 15 << 0;
    QTest::newRow("no infirmity test") << QDate(Y - 15, 3, 1) << 1 << 15 << 3;
    QTest::newRow("born the year after, at age -1") << QDate(Y + 1, 6, 1) << 0 << -1 << 6;
}

void tst_Dependants::monthsAtAge()
{
    QFETCH(QDate, birth);
    QFETCH(int, infirm);
    QFETCH(int, age);
    DependantInfoStruct list;
    oneDependant(list, birth, 0, infirm);
    QTEST(list.GetMonthsDepChildrenAtAge_Infirm(age), "months");
}

void tst_Dependants::monthsAddUp()
{
    DependantInfoStruct list;
    fill(list,
         { { "Kid", "", QDate(Y - 15, 3, 1), 0, 0, 0 },
           { "Nephew", "", QDate(Y - 15, 11, 20), 10, 0, 0 },
           { "Older", "", QDate(Y - 16, 5, 1), 0, 0, 0 } });
    QCOMPARE(list.GetMonthsDepChildrenAtAge_Infirm(15), 3 + 11);
}

void tst_Dependants::validateIndex_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("after");
    QTest::addColumn<bool>("corrected");
    QTest::newRow("0 is none, left alone") << 0 << 0 << false;
    QTest::newRow("negative set to none") << -1 << 0 << true;
    QTest::newRow("first row, named") << 1 << 1 << false;
    QTest::newRow("blank row set to none") << 2 << 0 << true;
    QTest::newRow("the count, last row named") << 3 << 3 << false;
    QTest::newRow("one past the count set to none") << 4 << 0 << true;
}

void tst_Dependants::validateIndex()
{
    QFETCH(int, index);
    DependantInfoStruct list;
    fill(list,
         { { "A", "", QDate(), 0, 0, 0 },
           { "", " ", QDate(), 0, 0, 0 },
           { "", "C", QDate(), 0, 0, 0 } });
    QTEST(list.ValidateAndCorrectDepIndex(index), "corrected");
    QTEST(index, "after");
}

QTEST_GUILESS_MAIN(tst_Dependants)
#include "tst_dependants.moc"
