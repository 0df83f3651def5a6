#include "hashes.h"
#include "sha256_p.h"

#include <QCryptographicHash>
#include <QRandomGenerator>
#include <QtTest>

// Random pieces after a null pointer, which feeds nothing, with mid-stream reads;
// the raw digest fills exactly HashBytes; operator() starts over.
template<typename Hash> static void check(const QByteArray& input, const QByteArray& hex)
{
    Hash h;
    h.add(nullptr, 10);
    QRandomGenerator rng(20251121);
    for (int pos = 0, piece = 0; pos < input.size(); pos += piece) {
        piece = qMin(int(input.size()) - pos, int(rng.bounded(1, 300)));
        h.add(input.constData() + pos, piece);
        if (rng.bounded(4) == 0)
            h.getHash();
    }
    unsigned char raw[Hash::HashBytes + 1];
    raw[Hash::HashBytes] = 0x5a;
    h.getHash(raw);
    QCOMPARE(QByteArray(reinterpret_cast<char*>(raw), Hash::HashBytes).toHex(), hex);
    QCOMPARE(raw[Hash::HashBytes], 0x5a);
    QCOMPARE(QByteArray::fromStdString(h.getHash()), hex);
    QCOMPARE(QByteArray::fromStdString(h(input.toStdString())), hex);
}

// 512 MiB and 3 bytes: the bit length 2^32 + 24 needs the high length word. The
// pieces vary in size and place in a buffer that changes; Qt gets the same pieces.
template<typename Hash> static void compareBeyond32Bits(QCryptographicHash::Algorithm algorithm)
{
    const qint64 total = (qint64(1) << 29) + 3;
    QRandomGenerator rng(512);
    QByteArray pool(2 << 20, Qt::Uninitialized);
    rng.fillRange(reinterpret_cast<quint32*>(pool.data()), pool.size() / 4);
    Hash ours;
    QCryptographicHash theirs(algorithm);
    for (qint64 fed = 0, piece = 0; fed < total; fed += piece) {
        const int wanted = rng.bounded(4) == 0 ? rng.bounded(1, 130) : rng.bounded(1, 1 << 20);
        piece = qMin<qint64>(total - fed, wanted);
        const int at = rng.bounded(int(pool.size()) - piece + 1);
        pool[at] = char(pool[at] ^ char(fed >> 8));
        ours.add(pool.constData() + at, static_cast<unsigned long>(piece));
        theirs.addData(QByteArrayView(pool.constData() + at, piece));
    }
    QCOMPARE(QByteArray::fromStdString(ours.getHash()), theirs.result().toHex());
}

class tst_Hashes : public QObject
{
    Q_OBJECT
private slots:
    void cleanup() { Bedrock::sha256UseShaExtensions(true); } // what the process picks itself

    // Published vectors, and padding edges (55 bytes fit) against Qt, each kernel.
    void digests_data()
    {
        QTest::addColumn<bool>("shaExtensions");
        QTest::addColumn<QByteArray>("input");
        QTest::addColumn<QByteArray>("sha1");
        QTest::addColumn<QByteArray>("sha256");
        using B = QByteArray;
        B random(120, Qt::Uninitialized);
        QRandomGenerator(4242).fillRange(reinterpret_cast<quint32*>(random.data()), 30);
        using H = QCryptographicHash;
        for (bool ext : { false, true }) {
            const char* k = ext ? "SHA extensions" : "portable";
            QTest::addRow("%s: empty message", k)
                << ext << B() << B("da39a3ee5e6b4b0d3255bfef95601890afd80709")
                << B("e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
            QTest::addRow("%s: abc", k)
                << ext << B("abc") << B("a9993e364706816aba3e25717850c26c9cd0d89d")
                << B("ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
            QTest::addRow("%s: 448 bits, length in a second block", k)
                << ext << B("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq")
                << B("84983e441c3bd26ebaae4aa1f95129e5e54670f1")
                << B("248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
            QTest::addRow("%s: a million a", k)
                << ext << B(1000000, 'a') << B("34aa973cd4c4daa4f61eeb2bdbad27316534016f")
                << B("cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
            for (int n : { 55, 56, 119, 120 })
                QTest::addRow("%s: %d random bytes", k, n)
                    << ext << random.left(n) << H::hash(random.left(n), H::Sha1).toHex()
                    << H::hash(random.left(n), H::Sha256).toHex();
        }
    }
    void digests()
    {
        QFETCH(bool, shaExtensions);
        QFETCH(QByteArray, input);
        if (shaExtensions && !Bedrock::sha256ShaExtensionsAvailable())
            QSKIP("this processor has no SHA extensions");
        QCOMPARE(Bedrock::sha256UseShaExtensions(shaExtensions), shaExtensions);
        QFETCH(QByteArray, sha1);
        QFETCH(QByteArray, sha256);
        check<SHA1>(input, sha1);
        check<SHA256>(input, sha256);
    }

    void sha1LengthBeyond32Bits() { compareBeyond32Bits<SHA1>(QCryptographicHash::Sha1); }
    void sha256LengthBeyond32Bits() { compareBeyond32Bits<SHA256>(QCryptographicHash::Sha256); }
};

QTEST_GUILESS_MAIN(tst_Hashes)
#include "tst_hashes.moc"
