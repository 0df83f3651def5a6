#include "archivecipher_p.h"
#include "cmemoryblock.h"
#include "creservedarea.h"
#include "mydatastream.h"

#include <QtTest>

namespace {

// Argon2id costs a fraction of a second per key text: the tests share a few.
const CString MainKey(QStringLiteral("k-main"));
const QByteArray Plain("<m><f n=\"fld_1\">12.5</f></m>");
// A stored record: 32-bit size, then header, salt, nonce, ciphertext and tag.
constexpr int SaltAt = 4 + Bedrock::ArchiveCipher::HeaderBytes;
constexpr int NonceAt = SaltAt + Bedrock::ArchiveCipher::SaltBytes;
constexpr int CipherAt = NonceAt + Bedrock::ArchiveCipher::NonceBytes;

int archiveInfos = 0; // info messages of "bedrock.filing" in the current test
QtMessageHandler qtHandler = nullptr;
QLoggingCategory::CategoryFilter qtFilter = nullptr;

struct MemoryStream {
    MemoryStream(QByteArray* bytes, QIODevice::OpenMode mode)
        : buffer(bytes)
    {
        buffer.open(mode);
    }
    QBuffer buffer;
    MyDataStream stream { &buffer };
};

QByteArray store(const CString& key, const QByteArray& plain)
{
    CT1EncryptedMemoryBlock block(key);
    block.Append(plain.constData(), int(plain.size()));
    QByteArray bytes;
    MemoryStream out(&bytes, QIODevice::WriteOnly);
    block.WriteToReturnArchive(out.stream);
    return bytes;
}

// Loads into a block that holds something, so a failed load must clear it.
QByteArray load(const CString& key, QByteArray bytes)
{
    MemoryStream in(&bytes, QIODevice::ReadOnly);
    CT1EncryptedMemoryBlock block(key);
    block.Append("stale");
    const int got = block.ReadFromReturnArchive(in.stream);
    return got == block.GetContentSize() ? QByteArray(block.GetData(), got) : "result is not size";
}

QByteArray flipped(QByteArray r, int at, char bits = 0x01)
{
    r[at] = char(r[at] ^ bits);
    return r;
}
QByteArray announcing(qint32 size, QByteArray r)
{
    qToLittleEndian(size, r.data());
    return r;
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
    void initTestCase()
    {
        // ctest switches bedrock info messages off; these tests count the archive's.
        qtFilter = QLoggingCategory::installFilter([](QLoggingCategory* category) {
            qtFilter(category);
            if (qstrcmp(category->categoryName(), "bedrock.filing") == 0)
                category->setEnabled(QtInfoMsg, true);
        });
        qtHandler = qInstallMessageHandler(
            [](QtMsgType type, const QMessageLogContext& context, const QString& text) {
                if (type == QtInfoMsg && qstrcmp(context.category, "bedrock.filing") == 0)
                    ++archiveInfos;
                else
                    qtHandler(type, context, text);
            });
    }
    void init() { archiveInfos = 0; }

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
        const QByteArray record = store(MainKey, plain), again = store(MainKey, plain);
        QCOMPARE(record.size(), 4 + Bedrock::ArchiveCipher::OverheadBytes + plain.size());
        QVERIFY(!record.contains(Plain));
        QVERIFY(again.mid(NonceAt, 24) != record.mid(NonceAt, 24)); // a fresh nonce each store
        QVERIFY(load(MainKey, record) == plain);
        QVERIFY(load(MainKey, again) == plain);
    }

    void rejected_data()
    {
        const QByteArray good = store(MainKey, Plain);
        const QString key = MainKey;
        QTest::addColumn<QString>("key");
        QTest::addColumn<QByteArray>("record");
        QTest::newRow("wrong key") << QStringLiteral("k-wrong") << good;
        QTest::newRow("header altered") << key << flipped(good, 4);
        QTest::newRow("salt altered") << key << flipped(good, SaltAt + 3);
        QTest::newRow("nonce altered") << key << flipped(good, NonceAt + 5);
        QTest::newRow("ciphertext altered") << key << flipped(good, CipherAt + 2);
        QTest::newRow("tag altered") << key << flipped(good, good.size() - 1);
        QTest::newRow("cut, size agrees") << key << announcing(good.size() - 5, good.chopped(1));
        QTest::newRow("shorter than the envelope") << key << announcing(10, good.left(14));
        QTest::newRow("whole envelope, size says more") << key << announcing(0x7fffffff, good);
    }
    void rejected()
    {
        QFETCH(QString, key);
        QFETCH(QByteArray, record);
        QCOMPARE(load(CString(key), record), QByteArray());
        QCOMPARE(archiveInfos, 1);
    }

    void oneDerivationPerKey()
    {
        const CString key(QStringLiteral("k-cache"));
        const int before = Bedrock::ArchiveCipher::keyDerivationCount();
        for (int i = 0; i < 50; ++i)
            QCOMPARE(load(key, store(key, Plain + char('a' + i))), Plain + char('a' + i));
        QCOMPARE(Bedrock::ArchiveCipher::keyDerivationCount() - before, 1);
    }

    void reservedArea()
    {
        CReservedArea writer, reader, stranger(MainKey);
        writer.setString(0, CString(QStringLiteral("Jos\u00e9 Tremblay, 0123456789")));
        writer.setString(1, CString(QStringLiteral("A1B 2C3")));
        QCOMPARE(stringAt(writer, 0), QStringLiteral("Jos\u00e9 Tremblay, 0123")); // 19 characters
        QByteArray bytes;
        MemoryStream out(&bytes, QIODevice::WriteOnly);
        writer.writeToArchive(out.stream);
        QByteArray cut = bytes.chopped(3);
        MemoryStream in(&bytes, QIODevice::ReadOnly), again(&bytes, QIODevice::ReadOnly);
        MemoryStream cutIn(&cut, QIODevice::ReadOnly);
        QVERIFY(reader.readFromArchive(in.stream));
        QCOMPARE(stringAt(reader, 0), stringAt(writer, 0));
        QCOMPARE(stringAt(reader, 1), QStringLiteral("A1B 2C3"));
        QVERIFY(!stranger.readFromArchive(again.stream)); // another key
        QVERIFY(!reader.readFromArchive(cutIn.stream));
        QVERIFY(stringAt(reader, 1).isEmpty()); // a failed read leaves the strings empty
    }

    // Last: a failure here may leave the fast derivation on.
    void everyAlteredByteRejected()
    {
        Bedrock::ArchiveCipher::setFastKeyDerivationForTesting(true);
        const QByteArray good = store(MainKey, Plain);
        QCOMPARE(load(MainKey, good), Plain);
        for (int at = 4; at < good.size(); ++at)
            QVERIFY2(load(MainKey, flipped(good, at)).isEmpty()
                         && load(MainKey, flipped(good, at, char(0x80))).isEmpty(),
                     qPrintable(QStringLiteral("altered byte %1 was accepted").arg(at)));
        Bedrock::ArchiveCipher::setFastKeyDerivationForTesting(false);
        QCOMPARE(archiveInfos, 2 * (good.size() - 4));
    }
};

QTEST_GUILESS_MAIN(tst_EncryptedBlock)
#include "tst_encryptedblock.moc"
