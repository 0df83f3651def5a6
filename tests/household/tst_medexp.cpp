#include "medexpinfo.h"
#include "streambytes.h"

#include <QTest>

namespace {

constexpr unsigned int Newest = 0x10300;
// Own fields at the newest version: the count, ten amounts and two flags.
constexpr int OwnBytes = 4 + 10 * 8 + 2 * 4;
// One row: five amounts and a flag.
constexpr int RowBytes = 5 * 8 + 4;

QByteArray stored(_MedExpInfoStruct& rec, unsigned int version = Newest)
{
    return storeBytes([&](MyDataStream& s) { rec.serilize(int(version), s); });
}

void load(_MedExpInfoStruct& rec, const QByteArray& bytes, unsigned int version = Newest)
{
    loadBytes(bytes, [&](MyDataStream& s) { rec.serilize(int(version), s); });
}

QByteArray withCount(QByteArray bytes, qint32 count)
{
    return bytes.replace(0, 4, QByteArray(reinterpret_cast<const char*>(&count), 4));
}

// Three rows, the last with an amount to recognise it by.
QByteArray threeRows(unsigned int version = Newest)
{
    _MedExpInfoStruct three;
    three.AllocData(3);
    three.m_pData[2].fld_medexp_van = 12.5;
    return stored(three, version);
}

} // namespace

class tst_MedExp : public QObject
{
    Q_OBJECT
private slots:
    void storingEmptyRecordGivesTwelveRows()
    {
        _MedExpInfoStruct rec;
        QVERIFY(!rec.m_pData);
        QCOMPARE(stored(rec).size(), OwnBytes); // own fields only
        QCOMPARE(rec.fld_nDepNum.m_value, 12);
        QCOMPARE(stored(rec).size(), OwnBytes + 12 * RowBytes);
    }

    void loads_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<unsigned int>("version");
        QTest::addColumn<int>("rows");
        const QByteArray good = threeRows();
        QTest::newRow("count 3") << good << Newest << 3;
        QTest::newRow("count 1 reads one row") << withCount(good, 1) << Newest << 1;
        QTest::newRow("count 0 gives twelve") << withCount(good.left(OwnBytes), 0) << Newest << 12;
        QTest::newRow("negative count gives twelve")
            << withCount(good.left(OwnBytes), -7) << Newest << 12;
        QTest::newRow("first version with the count") << threeRows(0x100d2) << 0x100d2u << 3;
        QTest::newRow("archive older than the count gives twelve")
            << QByteArray("") << 0x100d1u << 12;
        QTest::newRow("huge count, few bytes") << withCount(good, 0x7fffffff) << Newest << 3;
        QTest::newRow("cut in the last row") << good.left(good.size() - 1) << Newest << 2;
        QTest::newRow("cut in the own fields") << good.left(50) << Newest << 0;
    }

    void loads()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(unsigned int, version);
        _MedExpInfoStruct rec;
        load(rec, bytes, version);
        QTEST(rec.fld_nDepNum.m_value, "rows");
        QVERIFY(rec.m_pData);
    }

    void loadedRowsKeepTheirValues()
    {
        _MedExpInfoStruct rec;
        load(rec, threeRows());
        QCOMPARE(rec.m_pData[2].fld_medexp_van.m_value, 12.5);
    }

    void clearKeepsCountAndRows()
    {
        _MedExpInfoStruct rec;
        rec.AllocData(3);
        rec.fld_medexp_spouse = 40.0;
        rec.m_pData[1].fld_medexp = 10.0;
        rec.m_pData[1].fld_disabled_nodisablityclaim = 1;
        rec.ClearData();
        QCOMPARE(rec.fld_nDepNum.m_value, 3);
        QCOMPARE(rec.fld_medexp_spouse.m_value, 0.0);
        QCOMPARE(rec.m_pData[1].fld_medexp.m_value, 0.0);
        QCOMPARE(rec.m_pData[1].fld_disabled_nodisablityclaim.m_value, 0);
    }

    void copyIsDeep()
    {
        _MedExpInfoStruct a, b;
        b.AllocData(2);
        b.m_pData[1].fld_medexp_move = 99.0;
        a = b;
        QVERIFY(a == b);
        QVERIFY(a.m_pData != b.m_pData);
        a.m_pData[1].fld_medexp_move = 1.0;
        QCOMPARE(b.m_pData[1].fld_medexp_move.m_value, 99.0);
        QVERIFY(!(a == b));
    }

    void allocZeroThenFree()
    {
        _MedExpInfoStruct rec;
        rec.AllocData(0);
        QVERIFY(rec.m_pData);
        rec.FreeData();
        QVERIFY(!rec.m_pData);
        QCOMPARE(rec.fld_nDepNum.m_value, 0);
    }
};

QTEST_GUILESS_MAIN(tst_MedExp)
#include "tst_medexp.moc"
