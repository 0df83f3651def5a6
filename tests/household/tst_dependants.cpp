#include "dependantinfo.h"
#include "libbedrock_config.h"
#include "mydatastream.h"

#include <QBuffer>
#include <QTest>

#include <cstring>
#include <functional>

namespace {

constexpr int Y = LIBBEDROCK_TAX_YEAR;
using Query = std::function<int(DependantInfoStruct&)>;

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

template<typename T> QByteArray le(T v)
{
    return QByteArray(reinterpret_cast<const char*>(&v), sizeof v);
}

template<typename T> QByteArray stored(T& object, int version = 0x10300)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    MyDataStream out(&buffer);
    object.serilize(version, out);
    return bytes;
}

// Returns the bytes consumed.
template<typename T> qint64 load(T& object, QByteArray bytes, int version = 0x10300)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    MyDataStream in(&buffer);
    object.serilize(version, in);
    return buffer.pos();
}

} // namespace

Q_DECLARE_METATYPE(Query)

class tst_Dependants : public QObject
{
    Q_OBJECT
private slots:
    void comboText_data()
    {
        QTest::addColumn<QString>("first");
        QTest::addColumn<int>("relation");
        QTest::addColumn<int>("infirm");
        QTest::addColumn<QDate>("birth");
        QTest::addColumn<QString>("text");
        QTest::newRow("no last name: placeholder, and the doubled separator")
            << "Ann" << 1 << 0 << QDate()
            << "Ann <LastName> - Daughter - net inc.($1234.50) -  - Normal";
        QTest::newRow("names trimmed, valid date appended")
            << "  Ann " << 9 << 2 << QDate(2010, 5, 3)
            << "Ann <LastName> - Sister - net inc.($1234.50) -  - Disabled - 2010-05-03";
        QTest::newRow("codes outside the tables have no name")
            << "Ann" << 99 << 7 << QDate() << "Ann <LastName> -  - net inc.($1234.50) -  - ";
        QTest::newRow("blank names: no row") << "   " << 0 << 0 << QDate() << QString();
    }
    void comboText()
    {
        QFETCH(QString, first);
        QFETCH(int, relation);
        QFETCH(int, infirm);
        QFETCH(QDate, birth);
        QFETCH(QString, text);
        DependantInfoStruct list;
        fill(list, { { qPrintable(first), " ", birth, relation, infirm, 1234.5 } });
        _OneDependantInfoStru& row = list.m_pData[0];
        CString out("stale");
        QCOMPARE(row.MakeComboBoxString(out), !text.isEmpty());
        QCOMPARE(QString(out), text);
        QCOMPARE(row.getAge(), birth.isValid() ? Y - birth.year() : Y);
    }

    void readsOldLayouts_data()
    {
        QTest::addColumn<int>("version");
        QTest::addColumn<QByteArray>("dateBlock");
        QTest::addColumn<QDate>("date");
        QTest::addColumn<double>("income");
        QTest::newRow("0x10210: day number, read a day late as ever")
            << 0x10210 << le(40301.5) << QDate(2010, 5, 4) << 1234.56;
        QTest::newRow("0x10211: text")
            << 0x10211 << QByteArray("20100503") << QDate(2010, 5, 3) << 1234.56;
        QTest::newRow("zero date block: null date")
            << 0x10211 << QByteArray(8, '\0') << QDate() << 1234.56;
        QTest::newRow("0x100b1: income narrowed to float")
            << 0x100b1 << le(0.0) << QDate() << double(float(1234.56));
        QTest::newRow("0x100b2: income as double") << 0x100b2 << le(0.0) << QDate() << 1234.56;
    }
    void readsOldLayouts()
    {
        QFETCH(int, version);
        QFETCH(QByteArray, dateBlock);
        // Then fld_Infirm; from 0x100c0 five floats, from 0x100db two strings of 80 and 160.
        const QByteArray bytes = QByteArray(80, 'A') + QByteArray(80, '\0') + le(qint32(7))
            + dateBlock + le(qint32(3)) + le(1234.56) + le(qint32(2))
            + QByteArray(version > 0x100db ? 280 : 0, '\0');
        _OneDependantInfoStru row;
        QCOMPARE(load(row, bytes + "X", version), qint64(bytes.size()));
        QTEST(row.m_BirthDate, "date");
        QTEST(row.m_NetIncome, "income");
        QCOMPARE(row.m_Relation, 3);
        QCOMPARE(row.fld_Infirm.m_value, 2);
        QCOMPARE(std::strlen(row.m_FirstName), size_t(79)); // a full name keeps its terminator
    }

    void writesNewestLayout()
    {
        DependantInfoStruct list;
        fill(list,
             { { "Ann", "Lee", QDate(2010, 5, 3), 1, 0, 5.5 }, { "Bo", "", QDate(), 0, 0, 0 } });
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

    void rowPredicates()
    {
        DependantInfoStruct list;
        fill(list,
             { { "Nephew", "", QDate(Y - 10, 1, 1), 10, 0, 100.0 },
               { "Son18", "", QDate(LIBBEDROCK_MINOR_BIRTH_YEAR - 1, 12, 31), 0, 0, 0 },
               { "Son17", "", QDate(LIBBEDROCK_MINOR_BIRTH_YEAR, 1, 1), 0, 0, 0 },
               { "Negative", "", QDate(Y, 1, 1), -1, 0,
                 0 } }); // a negative relation is large unsigned
        const QList<bool> line330 { list.m_pData[0].IsMedExpForLine330(),
                                    list.m_pData[1].IsMedExpForLine330(),
                                    list.m_pData[2].IsMedExpForLine330(),
                                    list.m_pData[3].IsMedExpForLine330() };
        QCOMPARE(line330, QList<bool>({ false, false, true, false }));
        list.F185Adjustment.m_value = 0.25;
        QCOMPARE(list.GetDepNetIncConsideringF185(0), 100.25);
        QCOMPARE(list.GetDepNetIncConsideringF185(4), 0.0);
        QCOMPARE(list.GetDepNetIncConsideringF185(-1), 0.0);
        _OneDependantInfoStru a(list.m_pData[0]), b;
        b = a;
        b.m_NetIncome += 0.008;
        QVERIFY(a == b);
        b.m_NetIncome = 100.01;
        QVERIFY(!(a == b));
    }

    void queries_data()
    {
        using L = DependantInfoStruct;
        QTest::addColumn<Query>("query");
        QTest::addColumn<int>("count");
        QTest::newRow("no bounds: all born in time")
            << Query([](L& l) { return l.GetDepNumberBetweenAges(0, 0); }) << 11;
        QTest::newRow("null date is as old as the tax year")
            << Query([](L& l) { return l.GetDepNumberBetweenAges(0, 18); }) << 6;
        QTest::newRow("18 to 18") << Query([](L& l) { return l.GetDepNumberBetweenAges(18, 18); })
                                  << 1;
        QTest::newRow("children: no relation test")
            << Query([](L& l) { return l.GetDepChildrenNumberBetweenAges(0, 18); }) << 6;
        QTest::newRow("infirm, no lower bound")
            << Query([](L& l) { return l.GetInfirmDependantsNumberNotUnderAge(0); }) << 5;
        QTest::newRow("infirm, at least 18")
            << Query([](L& l) { return l.GetInfirmDependantsNumberNotUnderAge(18); }) << 3;
        QTest::newRow("disabled, 18 and over")
            << Query([](L& l) { return l.GetDisabledDependantsBetweenAges(18, 0); }) << 1;
        QTest::newRow("disabled, too young")
            << Query([](L& l) { return l.GetDisabledDependantsBetweenAges(36, 0); }) << 0;
        QTest::newRow("infirm minors: both ends of the years")
            << Query([](L& l) { return l.GetInfirmDependentNumberUnderAge18(); }) << 2;
        QTest::newRow("up to 18, infirm")
            << Query([](L& l) { return l.GetDepChildrenNumberBetweenAges_Infirm(0, 18, true); })
            << 3;
        QTest::newRow("up to 18, not infirm")
            << Query([](L& l) { return l.GetDepChildrenNumberBetweenAges_Infirm(0, 18, false); })
            << 3;
        QTest::newRow("relation: ages ignored, unborn counted")
            << Query([](L& l) { return l.GetDepNumberBetweenAgesAndRelation(50, 60, 0); }) << 3;
        QTest::newRow("line 305: any minor or infirm")
            << Query([](L& l) { return l.GetDepChildrenNumberForLine305(); }) << 8;
        QTest::newRow("line 305 others: parents, young or infirm siblings")
            << Query([](L& l) { return l.GetDepOtherThanChildrenNumberForLine305(); }) << 4;
        QTest::newRow("months at 15")
            << Query([](L& l) { return l.GetMonthsDepChildrenAtAge_Infirm(15); }) << 3 + 11;
        QTest::newRow("months: unborn counted too")
            << Query([](L& l) { return l.GetMonthsDepChildrenAtAge_Infirm(-1); }) << 6;
    }
    void queries()
    {
        QFETCH(Query, query);
        DependantInfoStruct list;
        QCOMPARE(query(list), 0);
        fill(list,
             { { "Kid", "", QDate(Y - 15, 3, 1), 0, 0, 0 },
               { "Nephew", "", QDate(Y - 15, 11, 20), 10, 0, 0 },
               { "Grandpa", "", QDate(1940, 1, 1), 4, 1, 0 },
               { "Mom", "", QDate(1950, 1, 1), 3, 0, 0 },
               { "OldSis", "", QDate(Y - 25, 1, 1), 9, 0, 0 },
               { "Sis", "", QDate(Y - 16, 1, 1), 9, 0, 0 },
               { "Bro", "", QDate(Y - 35, 1, 1), 8, 2, 0 },
               { "Unborn", "", QDate(Y + 1, 6, 1), 0, 1, 0 },
               { "Other", "", QDate(), 14, 0, 0 },
               { "  ", "", QDate(Y - 15, 1, 1), 0, 1, 0 },
               { "Adult", "", QDate(Y - 18, 1, 1), 1, 1, 0 },
               { "Teen", "", QDate(Y - 17, 1, 1), 0, 1, 0 },
               { "Baby", "", QDate(Y, 1, 1), 1, 1, 0 } });
        QTEST(query(list), "count");
    }

    void validateIndex()
    {
        DependantInfoStruct list;
        fill(list,
             { { "A", "", QDate(), 0, 0, 0 },
               { "", " ", QDate(), 0, 0, 0 },
               { "", "C", QDate(), 0, 0, 0 } });
        // index in, index out, corrected: none stays none, the last row is named, row 2 is blank.
        const int cases[][3]
            = { { 0, 0, 0 }, { -1, 0, 1 }, { 3, 3, 0 }, { 4, 0, 1 }, { 2, 0, 1 }, { 1, 1, 0 } };
        for (const auto& c : cases) {
            int index = c[0];
            QCOMPARE(list.ValidateAndCorrectDepIndex(index), bool(c[2]));
            QCOMPARE(index, c[1]);
        }
    }

    void hostileCounts_data()
    {
        DependantInfoStruct two;
        fill(two,
             { { "Ann", "Lee", QDate(2010, 5, 3), 1, 1, 5.5 }, { "Bo", "", QDate(), 0, 0, 0 } });
        const QByteArray good = stored(two);
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("rows");
        QTest::newRow("intact") << good << 2;
        QTest::newRow("huge count, few bytes") << le(qint32(0x7fffffff)) + good.mid(4, 100) << 0;
        QTest::newRow("negative count") << le(qint32(-5)) + good.mid(4) << -1;
        QTest::newRow("cut in the second row") << good.left(good.size() - 100) << 1;
        QTest::newRow("count beyond the rows") << le(qint32(1000)) + good.mid(4) << 2;
    }
    void hostileCounts()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(int, rows);
        DependantInfoStruct list;
        fill(list, std::vector<RowSpec>(3, { "Old", "", QDate(), 0, 0, 0 }));
        load(list, bytes);
        // -1: no rows and no array; otherwise the complete rows read, in an array.
        QCOMPARE(list.m_nCount, std::max(rows, 0));
        QCOMPARE(list.m_pData == nullptr, rows < 0);
        if (rows > 0)
            QCOMPARE(QByteArray(list.m_pData[0].m_FirstName), QByteArray("Ann"));
    }
};

QTEST_GUILESS_MAIN(tst_Dependants)
#include "tst_dependants.moc"
