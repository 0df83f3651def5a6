#include "medexpinfo.h"
#include "streambytes.h"

#include <QTest>

namespace {

constexpr unsigned int Newest = 0x10300;
// The record's own fields: the count, ten amounts and two flags.
constexpr int OwnBytes = 4 + 10 * 8 + 2 * 4;

// Three rows, the last with an amount to know it by, under the count given.
QByteArray threeRows(qint32 count = 3, unsigned int version = Newest)
{
    _MedExpInfoStruct three;
    three.AllocData(3);
    three.m_pData[2].fld_medexp_van = 12.5;
    return storeBytes([&](MyDataStream& s) { three.serilize(int(version), s); })
        .replace(0, 4, QByteArray(reinterpret_cast<char*>(&count), 4));
}

} // namespace

class tst_MedExp : public QObject
{
    Q_OBJECT
private slots:
    void loads_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<unsigned int>("version");
        QTest::addColumn<int>("rows");
        QTest::newRow("count 0 gives twelve") << threeRows(0).left(OwnBytes) << Newest << 12;
        QTest::newRow("first version with the count") << threeRows(3, 0x100d2) << 0x100d2u << 3;
        QTest::newRow("older archive gives twelve") << QByteArray("") << 0x100d1u << 12;
        QTest::newRow("huge count, few bytes") << threeRows(0x7fffffff) << Newest << 3;
        QTest::newRow("cut in the last row") << threeRows().chopped(1) << Newest << 2;
        QTest::newRow("cut in the own fields") << threeRows().left(50) << Newest << 0;
    }
    void loads()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(unsigned int, version);
        _MedExpInfoStruct rec;
        loadBytes(bytes, [&](MyDataStream& s) { rec.serilize(int(version), s); });
        QTEST(rec.fld_nDepNum.m_value, "rows");
        QVERIFY(rec.m_pData);
        if (rec.fld_nDepNum.m_value == 3) // the rows read are the rows stored
            QCOMPARE(rec.m_pData[2].fld_medexp_van.m_value, 12.5);
    }

    void copyIsDeep()
    {
        _MedExpInfoStruct a, b;
        b.AllocData(2);
        b.m_pData[1].fld_medexp_move = 99.0;
        a = b;
        QVERIFY(a == b);
        a.m_pData[1].fld_medexp_move = 1.0;
        QCOMPARE(b.m_pData[1].fld_medexp_move.m_value, 99.0);
        QVERIFY(!(a == b));
    }
};

QTEST_GUILESS_MAIN(tst_MedExp)
#include "tst_medexp.moc"
