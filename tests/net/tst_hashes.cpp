#include "hashes.h"
#include "sha256_p.h"

#include <QCryptographicHash>
#include <QRandomGenerator>
#include <QtTest>

#include <algorithm>
#include <vector>

class tst_Hashes : public QObject
{
    Q_OBJECT
private slots:
    void fipsVectors_data();
    void fipsVectors();
    void midStreamHash_data();
    void midStreamHash();
    void randomPieces_data();
    void randomPieces();
    void sha1LengthBeyond32Bits();
    void sha256LengthBeyond32Bits();
    void rawDigestIsExact();
    void callOperatorStartsOver();
    void nullDataFeedsNothing();
    void kernelsAgree_data();
    void kernelsAgree();
    void eachKernelThroughTheClass_data();
    void eachKernelThroughTheClass();
    void cleanup();
};

// Feeds `repeat` copies of `input` one after another.
template<typename Hash> static std::string digestOf(const QByteArray& input, int repeat)
{
    Hash h;
    for (int i = 0; i < repeat; ++i)
        h.add(input.constData(), input.size());
    return h.getHash();
}

void tst_Hashes::fipsVectors_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<int>("repeat");
    QTest::addColumn<QByteArray>("sha1");
    QTest::addColumn<QByteArray>("sha256");

    QTest::newRow("empty message, padding only")
        << QByteArray() << 1 << QByteArray("da39a3ee5e6b4b0d3255bfef95601890afd80709")
        << QByteArray("e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    QTest::newRow("abc, one block")
        << QByteArray("abc") << 1 << QByteArray("a9993e364706816aba3e25717850c26c9cd0d89d")
        << QByteArray("ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    QTest::newRow("448 bits, length spills into a second block")
        << QByteArray("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq") << 1
        << QByteArray("84983e441c3bd26ebaae4aa1f95129e5e54670f1")
        << QByteArray("248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
    QTest::newRow("a million a, many blocks")
        << QByteArray(1000, 'a') << 1000 << QByteArray("34aa973cd4c4daa4f61eeb2bdbad27316534016f")
        << QByteArray("cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
}

void tst_Hashes::fipsVectors()
{
    QFETCH(QByteArray, input);
    QFETCH(int, repeat);
    QFETCH(QByteArray, sha1);
    QFETCH(QByteArray, sha256);
    QCOMPARE(QByteArray::fromStdString(digestOf<SHA1>(input, repeat)), sha1);
    QCOMPARE(QByteArray::fromStdString(digestOf<SHA256>(input, repeat)), sha256);
    if (repeat == 1) {
        const std::string text = input.toStdString();
        QCOMPARE(QByteArray::fromStdString(SHA1()(text)), sha1);
        QCOMPARE(QByteArray::fromStdString(SHA256()(text)), sha256);
    }
}

void tst_Hashes::midStreamHash_data()
{
    QTest::addColumn<int>("split");
    QTest::newRow("nothing fed yet") << 0;
    QTest::newRow("partial block, short tail") << 10;
    QTest::newRow("partial block that pads into two blocks") << 60;
    QTest::newRow("exactly one block") << 64;
    QTest::newRow("block and a bit") << 130;
}

// A mid-stream getHash must match the digest of the prefix and leave the
// running state, buffered bytes included, untouched for what follows.
void tst_Hashes::midStreamHash()
{
    QFETCH(int, split);
    QByteArray data(200, Qt::Uninitialized);
    for (int i = 0; i < data.size(); ++i)
        data[i] = char(i * 7 + 3);
    const QByteArray head = data.left(split), tail = data.mid(split);

    SHA1 s1;
    SHA256 s256;
    s1.add(head.constData(), head.size());
    s256.add(head.constData(), head.size());
    QCOMPARE(QByteArray::fromStdString(s1.getHash()),
             QCryptographicHash::hash(head, QCryptographicHash::Sha1).toHex());
    QCOMPARE(QByteArray::fromStdString(s256.getHash()),
             QCryptographicHash::hash(head, QCryptographicHash::Sha256).toHex());
    s1.add(tail.constData(), tail.size());
    s256.add(tail.constData(), tail.size());
    QCOMPARE(QByteArray::fromStdString(s1.getHash()),
             QCryptographicHash::hash(data, QCryptographicHash::Sha1).toHex());
    QCOMPARE(QByteArray::fromStdString(s256.getHash()),
             QCryptographicHash::hash(data, QCryptographicHash::Sha256).toHex());
}

// Random bytes of each length over the block edges, fed in random pieces,
// against Qt's own digests. Padding fits the last block up to 55 bytes in it.
void tst_Hashes::randomPieces_data()
{
    QTest::addColumn<int>("length");
    for (int n : { 0, 1, 55, 56, 57, 63, 64, 65, 119, 120, 127, 128, 129, 4095, 65536, 1000003 })
        QTest::addRow("%d bytes", n) << n;
}

void tst_Hashes::randomPieces()
{
    QFETCH(int, length);
    QRandomGenerator rng(20251121 + quint32(length));
    QByteArray data(length, Qt::Uninitialized);
    for (char& c : data)
        c = char(rng.bounded(256));
    SHA1 s1;
    SHA256 s256;
    for (int pos = 0; pos < length;) {
        const int piece = qMin(length - pos, int(rng.bounded(1, 150)));
        s1.add(data.constData() + pos, piece);
        s256.add(data.constData() + pos, piece);
        pos += piece;
    }
    QCOMPARE(QByteArray::fromStdString(s1.getHash()),
             QCryptographicHash::hash(data, QCryptographicHash::Sha1).toHex());
    QCOMPARE(QByteArray::fromStdString(s256.getHash()),
             QCryptographicHash::hash(data, QCryptographicHash::Sha256).toHex());
}

/*
 * 512 MiB and 3 bytes: the bit length is 2^32 + 24, so the padding carries a
 * high length word of 1. The stream is cut from one reused buffer at varying
 * places and in pieces of varying size, and the buffer changes as it goes;
 * Qt's digest is fed the very same pieces.
 */
template<typename Hash> static void compareBeyond32Bits(QCryptographicHash::Algorithm algorithm)
{
    const qint64 total = (qint64(1) << 29) + 3;
    QRandomGenerator rng(512);
    QByteArray pool(2 << 20, Qt::Uninitialized);
    for (char& c : pool)
        c = char(rng.bounded(256));
    Hash ours;
    QCryptographicHash theirs(algorithm);
    for (qint64 fed = 0; fed < total;) {
        const int wanted = rng.bounded(4) == 0 ? rng.bounded(1, 130) : rng.bounded(1, 1 << 20);
        const int piece = int(qMin<qint64>(total - fed, wanted));
        const int at = rng.bounded(int(pool.size()) - piece + 1);
        pool[at] = char(pool[at] ^ char(fed >> 8));
        ours.add(pool.constData() + at, static_cast<unsigned long>(piece));
        theirs.addData(QByteArrayView(pool.constData() + at, piece));
        fed += piece;
    }
    QCOMPARE(QByteArray::fromStdString(ours.getHash()), theirs.result().toHex());
}

void tst_Hashes::sha1LengthBeyond32Bits()
{
    compareBeyond32Bits<SHA1>(QCryptographicHash::Sha1);
}

void tst_Hashes::sha256LengthBeyond32Bits()
{
    compareBeyond32Bits<SHA256>(QCryptographicHash::Sha256);
}

void tst_Hashes::rawDigestIsExact()
{
    unsigned char raw[33];
    std::fill(raw, raw + 33, 0x5a);
    SHA1 s1;
    s1.add("abc", 3);
    s1.getHash(raw);
    QCOMPARE(raw[20], 0x5a); // exactly 20 bytes written
    QCOMPARE(QByteArray(reinterpret_cast<char*>(raw), 20),
             QCryptographicHash::hash("abc", QCryptographicHash::Sha1));
    SHA256 s256;
    s256.add("abc", 3);
    s256.getHash(raw);
    QCOMPARE(raw[32], 0x5a); // exactly 32 bytes written
    QCOMPARE(QByteArray(reinterpret_cast<char*>(raw), 32),
             QCryptographicHash::hash("abc", QCryptographicHash::Sha256));
}

// operator() starts over, so earlier input must not leak into it.
void tst_Hashes::callOperatorStartsOver()
{
    SHA1 s1;
    SHA256 s256;
    s1.add("stale", 5);
    s256.add("stale", 5);
    QCOMPARE(s1(std::string("abc")), std::string("a9993e364706816aba3e25717850c26c9cd0d89d"));
    QCOMPARE(QByteArray::fromStdString(s256("abc", 3)),
             QByteArray("ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"));
}

void tst_Hashes::nullDataFeedsNothing()
{
    SHA1 s;
    s.add(nullptr, 10);
    QCOMPARE(s.getHash(), std::string("da39a3ee5e6b4b0d3255bfef95601890afd80709"));
}

void tst_Hashes::cleanup()
{
    Bedrock::sha256UseShaExtensions(true); // back to what the process picks by itself
}

void tst_Hashes::kernelsAgree_data()
{
    QTest::addColumn<int>("blocks");
    for (int n : { 1, 2, 3, 5, 16, 257 })
        QTest::addRow("%d blocks", n) << n;
}

// The two block functions side by side on the same state and blocks,
// whole runs and block by block, with random starting states.
void tst_Hashes::kernelsAgree()
{
    if (!Bedrock::sha256ShaExtensionsAvailable())
        QSKIP("this processor has no SHA extensions");
    QFETCH(int, blocks);
    QRandomGenerator rng(quint32(blocks) * 7919);
    for (int trial = 0; trial < 20; ++trial) {
        std::vector<std::uint8_t> data(std::size_t(blocks) * 64);
        for (auto& b : data)
            b = std::uint8_t(rng.bounded(256));
        std::uint32_t portable[8], extensions[8], single[8];
        for (int i = 0; i < 8; ++i)
            portable[i] = extensions[i] = single[i] = rng.generate();
        Bedrock::sha256CompressPortable(portable, data.data(), std::size_t(blocks));
        Bedrock::sha256CompressShaExtensions(extensions, data.data(), std::size_t(blocks));
        for (int i = 0; i < blocks; ++i)
            Bedrock::sha256CompressShaExtensions(single, data.data() + 64 * i, 1);
        QVERIFY(std::equal(portable, portable + 8, extensions));
        QVERIFY(std::equal(portable, portable + 8, single));
    }
}

// Random pieces with mid-stream reads, against Qt, with each kernel chosen.
void tst_Hashes::eachKernelThroughTheClass_data()
{
    QTest::addColumn<bool>("shaExtensions");
    QTest::addColumn<int>("length");
    for (bool shaExtensions : { false, true }) {
        for (int n : { 0, 3, 55, 56, 63, 64, 65, 119, 128, 1000, 16384, 70001 })
            QTest::addRow("%s, %d bytes", shaExtensions ? "SHA extensions" : "portable", n)
                << shaExtensions << n;
    }
}

void tst_Hashes::eachKernelThroughTheClass()
{
    QFETCH(bool, shaExtensions);
    QFETCH(int, length);
    if (shaExtensions && !Bedrock::sha256ShaExtensionsAvailable())
        QSKIP("this processor has no SHA extensions");
    QCOMPARE(Bedrock::sha256UseShaExtensions(shaExtensions), shaExtensions);

    QRandomGenerator rng(4242 + quint32(length));
    QByteArray data(length, Qt::Uninitialized);
    for (char& c : data)
        c = char(rng.bounded(256));
    SHA256 h;
    for (int pos = 0; pos < length;) {
        const int piece = qMin(length - pos, int(rng.bounded(1, 300)));
        h.add(data.constData() + pos, piece);
        pos += piece;
        if (rng.bounded(4) == 0)
            h.getHash(); // mid-stream reads must not disturb either kernel
    }
    QCOMPARE(QByteArray::fromStdString(h.getHash()),
             QCryptographicHash::hash(data, QCryptographicHash::Sha256).toHex());
}

QTEST_GUILESS_MAIN(tst_Hashes)
#include "tst_hashes.moc"
