#include "medexpinfo.h"
#include "mydatastream.h"

#include <QBuffer>
#include <QTest>

namespace {

// Loads when `bytes` is given, stores otherwise; returns what was written.
QByteArray run(_MedExpInfoStruct& rec, const QByteArray& bytes = {}, int version = 0x10300)
{
    QByteArray data = bytes;
    QBuffer buffer(&data);
    buffer.open(bytes.isNull() ? QIODevice::WriteOnly : QIODevice::ReadOnly);
    MyDataStream stream(&buffer);
    rec.serilize(version, stream);
    return bytes.isNull() ? data : QByteArray();
}

QByteArray withCount(QByteArray bytes, qint32 count)
{
    return bytes.replace(0, 4, QByteArray(reinterpret_cast<const char*>(&count), 4));
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
        QCOMPARE(run(rec).size(), 4 + 10 * 8 + 2 * 4); // own fields only
        QCOMPARE(rec.fld_nDepNum.m_value, 12);
        QCOMPARE(run(rec).size(), 92 + 12 * 44);
    }

    void loads_data()
    {
        _MedExpInfoStruct three;
        three.AllocData(3);
        three.m_pData[2].fld_medexp_van = 12.5;
        const QByteArray good = run(three);
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("version");
        QTest::addColumn<int>("rows");
        QTest::newRow("count 3") << good << 0x10300 << 3;
        QTest::newRow("count 0 gives twelve") << withCount(good.left(92), 0) << 0x10300 << 12;
        QTest::newRow("archive older than the count") << QByteArray("") << 0x100d1 << 12;
        QTest::newRow("negative count gives twelve")
            << withCount(good.left(92), -7) << 0x10300 << 12;
        QTest::newRow("huge count, few bytes") << withCount(good, 0x7fffffff) << 0x10300 << 3;
        QTest::newRow("cut in the last row") << good.left(good.size() - 1) << 0x10300 << 2;
        QTest::newRow("cut in the own fields") << good.left(50) << 0x10300 << 0;
    }
    void loads()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(int, version);
        _MedExpInfoStruct rec;
        run(rec, bytes, version);
        QTEST(rec.fld_nDepNum.m_value, "rows");
        QVERIFY(rec.m_pData);
        if (rec.fld_nDepNum.m_value == 3)
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
        QCOMPARE(rec.fld_medexp_spouse.m_value + rec.m_pData[1].fld_medexp.m_value, 0.0);
        QCOMPARE(rec.m_pData[1].fld_disabled_nodisablityclaim.m_value, 0);
    }

    void copyIsDeep()
    {
        _MedExpInfoStruct a, b;
        b.AllocData(2);
        b.m_pData[1].fld_medexp_move = 99.0;
        a = b;
        QVERIFY(a == b && a.m_pData != b.m_pData);
        a.m_pData[1].fld_medexp_move = 1.0;
        QCOMPARE(b.m_pData[1].fld_medexp_move.m_value, 99.0);
        QVERIFY(!(a == b));
        a.AllocData(0);
        QVERIFY(a.m_pData);
        a.FreeData();
        QVERIFY(!a.m_pData && a.fld_nDepNum.m_value == 0);
    }
};

QTEST_GUILESS_MAIN(tst_MedExp)
#include "tst_medexp.moc"
