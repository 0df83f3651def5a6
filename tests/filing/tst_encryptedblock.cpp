#include "archivecipher_p.h"
#include "cmemoryblock.h"
#include "creservedarea.h"
#include "logcapture.h"
#include "mydatastream.h"
#include "streambytes.h"

#include <QtTest>

namespace {

namespace Cipher = Bedrock::ArchiveCipher;

// Argon2id costs a fraction of a second per key text: the tests share a few.
const CString MainKey(QStringLiteral("k-main"));
const QByteArray Plain("<m><f n=\"fld_1\">12.5</f></m>");
// Places in the envelope, the bytes that follow the 32-bit size.
constexpr int SaltAt = Cipher::HeaderBytes;
constexpr int NonceAt = SaltAt + Cipher::SaltBytes;
constexpr int CipherAt = NonceAt + Cipher::NonceBytes;

QByteArray store(const CString& key, const QByteArray& plain)
{
    CT1EncryptedMemoryBlock block(key);
    block.Append(plain.constData(), int(plain.size()));
    return storeBytes([&](MyDataStream& s) { block.WriteToReturnArchive(s); });
}

struct Loaded {
    int result = -1;
    QByteArray content;
};

// Loads into a block that holds something, so a failed load must clear it.
Loaded load(const CString& key, const QByteArray& bytes)
{
    CT1EncryptedMemoryBlock block(key);
    block.Append("stale");
    Loaded out;
    loadBytes(bytes, [&](MyDataStream& s) { out.result = block.ReadFromReturnArchive(s); });
    out.content = QByteArray(block.GetData(), block.GetContentSize());
    return out;
}

QByteArray withSize(qint32 size, const QByteArray& envelope)
{
    QByteArray r(4, '\0');
    qToLittleEndian(size, r.data());
    return r + envelope;
}

QString stringAt(const CReservedArea& a, int i)
{
    CString s;
    a.getString(i, s);
    return QString(s);
}

} // namespace

class tst_EncryptedBlock : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup()
    {
        Cipher::setFastKeyDerivationForTesting(false); // only alteredByte turns it on
    }

    void roundTrip_data()
    {
        QTest::addColumn<QByteArray>("plain");
        QTest::newRow("empty block") << QByteArray();
        QTest::newRow("zero bytes inside") << QByteArray("a\0b\0\0c", 6);
        QTest::newRow("larger than a fresh block") << QByteArray(1000000, 'x') + Plain;
    }
    void roundTrip()
    {
        QFETCH(QByteArray, plain);
        const QByteArray record = store(MainKey, plain);
        QCOMPARE(record.size(), 4 + Cipher::OverheadBytes + plain.size());
        const Loaded loaded = load(MainKey, record);
        QCOMPARE(loaded.result, int(plain.size()));
        QVERIFY(loaded.content == plain);
    }

    void storesAreEnciphered()
    {
        const QByteArray record = store(MainKey, Plain), again = store(MainKey, Plain);
        QVERIFY(!record.contains(Plain));
        QVERIFY(again.mid(4 + NonceAt, Cipher::NonceBytes)
                != record.mid(4 + NonceAt, Cipher::NonceBytes));
        QCOMPARE(load(MainKey, again).content, Plain);
    }

    // The stored record altered in one way each; the load leaves the block empty
    // and says why once, at information level.
    void rejected_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<int>("flip"); // byte of the envelope to alter; -1 none
        QTest::addColumn<int>("keep"); // bytes of the envelope kept; -1 all
        QTest::addColumn<qint32>("size"); // size written in front; -1 what is kept

        const int whole = Cipher::OverheadBytes + int(Plain.size());
        QTest::newRow("wrong key") << "k-wrong" << -1 << -1 << -1;
        QTest::newRow("header altered") << QString(MainKey) << 0 << -1 << -1;
        QTest::newRow("salt altered") << QString(MainKey) << SaltAt + 3 << -1 << -1;
        QTest::newRow("nonce altered") << QString(MainKey) << NonceAt + 5 << -1 << -1;
        QTest::newRow("ciphertext altered") << QString(MainKey) << CipherAt + 2 << -1 << -1;
        QTest::newRow("tag altered") << QString(MainKey) << whole - 1 << -1 << -1;
        QTest::newRow("one byte cut, size agrees") << QString(MainKey) << -1 << whole - 1 << -1;
        QTest::newRow("one byte short of the smallest envelope")
            << QString(MainKey) << -1 << Cipher::OverheadBytes - 1 << -1;
        // Every byte is there and would open: only the size in front is wrong.
        QTest::newRow("size says one byte more") << QString(MainKey) << -1 << -1 << whole + 1;
        QTest::newRow("size says far more") << QString(MainKey) << -1 << -1 << 0x7fffffff;
    }
    void rejected()
    {
        QFETCH(QString, key);
        QFETCH(int, flip);
        QFETCH(int, keep);
        QFETCH(qint32, size);

        QByteArray envelope = store(MainKey, Plain).mid(4);
        if (flip >= 0)
            envelope[flip] = char(envelope[flip] ^ 0x01);
        if (keep >= 0)
            envelope.truncate(keep);
        const QByteArray record = withSize(size >= 0 ? size : qint32(envelope.size()), envelope);
        LogCapture log("bedrock.filing");
        const Loaded loaded = load(CString(key), record);
        QCOMPARE(loaded.result, 0);
        QCOMPARE(loaded.content, QByteArray());
        QCOMPARE(log.count(), 1);
    }

    void alteredByte_data()
    {
        QTest::addColumn<int>("at");
        QTest::addColumn<int>("bits");
        for (int at = 0; at < Cipher::OverheadBytes + Plain.size(); ++at) {
            QTest::addRow("byte %d, low bit", at) << at << 0x01;
            QTest::addRow("byte %d, high bit", at) << at << 0x80;
        }
    }
    void alteredByte()
    {
        QFETCH(int, at);
        QFETCH(int, bits);
        Cipher::setFastKeyDerivationForTesting(true);
        QByteArray record = store(MainKey, Plain);
        record[4 + at] = char(record[4 + at] ^ bits);
        LogCapture log("bedrock.filing");
        QCOMPARE(load(MainKey, record).content, QByteArray());
        QCOMPARE(log.count(), 1);
    }

    void oneDerivationPerKey()
    {
        const CString key(QStringLiteral("k-cache"));
        const int before = Cipher::keyDerivationCount();
        for (char c = 'a'; c < 'f'; ++c)
            QCOMPARE(load(key, store(key, Plain + c)).content, Plain + c);
        QCOMPARE(Cipher::keyDerivationCount() - before, 1);
    }

    // Index 0 and 1 hold a string; others are ignored and read as empty.
    void reservedIndexes_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("read");
        QTest::newRow("index 0 is the first") << 0 << "x";
        QTest::newRow("index 1 is the last") << 1 << "x";
        QTest::newRow("one below the first is ignored") << -1 << "";
        QTest::newRow("one past the last is ignored") << 2 << "";
    }
    void reservedIndexes()
    {
        QFETCH(int, index);
        QFETCH(QString, read);
        CReservedArea area;
        area.setString(index, CString(QStringLiteral("x")));
        QCOMPARE(stringAt(area, index), read);
    }

    void reservedLength_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("kept");
        QTest::newRow("19 characters are kept whole") << QStringLiteral("Jos\u00e9 Tremblay, 0123")
                                                      << QStringLiteral("Jos\u00e9 Tremblay, 0123");
        QTest::newRow("a 20th character is cut") << QStringLiteral("Jos\u00e9 Tremblay, 01234")
                                                 << QStringLiteral("Jos\u00e9 Tremblay, 0123");
    }
    void reservedLength()
    {
        QFETCH(QString, text);
        QFETCH(QString, kept);
        CReservedArea area;
        area.setString(0, CString(text));
        QCOMPARE(stringAt(area, 0), kept);
    }

    // A failed read leaves both strings empty, whatever the reader held, and says why once.
    void reservedArchive_data()
    {
        QTest::addColumn<QString>("readerKey"); // empty: the library's own
        QTest::addColumn<int>("cut");
        QTest::addColumn<bool>("ok");
        QTest::addColumn<QString>("first");
        QTest::addColumn<QString>("second");
        QTest::newRow("read back with the same key")
            << QString() << 0 << true << QStringLiteral("Jos\u00e9 Tremblay") << "A1B 2C3";
        QTest::newRow("another key is refused") << QString(MainKey) << 0 << false << ""
                                                << "";
        QTest::newRow("a cut record is refused") << QString() << 3 << false << ""
                                                 << "";
    }
    void reservedArchive()
    {
        QFETCH(QString, readerKey);
        QFETCH(int, cut);
        QFETCH(bool, ok);
        QFETCH(QString, first);
        QFETCH(QString, second);

        CReservedArea writer;
        writer.setString(0, CString(QStringLiteral("Jos\u00e9 Tremblay")));
        writer.setString(1, CString(QStringLiteral("A1B 2C3")));
        const QByteArray bytes = storeBytes([&](MyDataStream& s) { writer.writeToArchive(s); });
        CReservedArea reader = readerKey.isEmpty() ? CReservedArea() : CReservedArea(readerKey);
        reader.setString(0, CString(QStringLiteral("old")));
        reader.setString(1, CString(QStringLiteral("old")));
        bool read = !ok;
        LogCapture log("bedrock.filing");
        loadBytes(bytes.chopped(cut), [&](MyDataStream& s) { read = reader.readFromArchive(s); });
        QCOMPARE(read, ok);
        QCOMPARE(stringAt(reader, 0), first);
        QCOMPARE(stringAt(reader, 1), second);
        QCOMPARE(log.count(), ok ? 0 : 1);
    }
};

QTEST_GUILESS_MAIN(tst_EncryptedBlock)
#include "tst_encryptedblock.moc"
