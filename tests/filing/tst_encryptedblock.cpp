#include "archivecipher_p.h"
#include "cmemoryblock.h"
#include "creservedarea.h"
#include "logcapture.h"
#include "streambytes.h"

#include <QtTest>

namespace Cipher = Bedrock::ArchiveCipher;
using B = QByteArray;

// Argon2id costs a fraction of a second per key text and salt: the rows share a key.
static const CString Key("k-main");
static const B Plain("<m><f n=\"fld_1\">12.5</f></m>");
static const QString Name = QStringLiteral("Jos\u00e9 Tremblay, 0123"); // 19 characters

class tst_EncryptedBlock : public QObject
{
    Q_OBJECT
private slots:
    void cleanup() { Cipher::setFastKeyDerivationForTesting(false); }

    // A record opens only with its key, whole and unaltered; else the load empties
    // the block and says why once. Each envelope byte is altered with a fast key.
    void load_data()
    {
        QTest::addColumn<B>("plain");
        QTest::addColumn<QString>("key");
        QTest::addColumn<B>("mask"); // XORed over the envelope
        QTest::addColumn<int>("keep"); // bytes of the envelope kept; -1 all
        QTest::addColumn<qint32>("size"); // size written in front; -1 what is kept
        const int whole = Cipher::OverheadBytes + int(Plain.size());
        const QString k(Key);
        QTest::newRow("empty block") << B() << k << B() << -1 << -1;
        QTest::newRow("zero bytes inside") << B("a\0b\0\0c", 6) << k << B() << -1 << -1;
        QTest::newRow("larger than a fresh block")
            << B(1000000, 'x') + Plain << k << B() << -1 << -1;
        QTest::newRow("wrong key") << Plain << "k-wrong" << B() << -1 << -1;
        QTest::newRow("one byte cut, size agrees") << Plain << k << B() << whole - 1 << -1;
        QTest::newRow("shorter than any envelope")
            << Plain << k << B() << Cipher::OverheadBytes - 1 << -1;
        // Every byte is there and would open: only the size in front is wrong.
        QTest::newRow("size says one byte more") << Plain << k << B() << -1 << whole + 1;
        QTest::newRow("size says far more") << Plain << k << B() << -1 << 0x7fffffff;
        for (int at = 0; at < whole; ++at) {
            for (char bits : { char(0x01), char(0x80) })
                QTest::addRow("byte %d, bits %02x", at, uchar(bits))
                    << Plain << k << B(at, 0) + bits << -1 << -1;
        }
    }
    void load()
    {
        QFETCH(B, plain);
        QFETCH(QString, key);
        QFETCH(B, mask);
        QFETCH(int, keep);
        QFETCH(qint32, size);
        Cipher::setFastKeyDerivationForTesting(!mask.isEmpty()); // thousands of loads
        CT1EncryptedMemoryBlock writer(Key), block(key);
        writer.Append(plain.constData(), int(plain.size()));
        const auto store
            = [&] { return storeBytes([&](MyDataStream& s) { writer.WriteToReturnArchive(s); }); };
        const B stored = store(), again = store();
        B envelope = stored.mid(4);
        for (int i = 0; i < mask.size(); ++i)
            envelope[i] = char(envelope[i] ^ mask[i]);
        envelope.truncate(keep >= 0 ? keep : envelope.size());
        B record(4, '\0');
        qToLittleEndian(size >= 0 ? size : qint32(envelope.size()), record.data());
        const bool opens = record + envelope == stored && key == QString(Key);
        block.Append("stale");
        LogCapture log("bedrock.filing");
        int result = -1;
        loadBytes(record + envelope,
                  [&](MyDataStream& s) { result = block.ReadFromReturnArchive(s); });
        QCOMPARE(result, opens ? int(plain.size()) : 0);
        QVERIFY(B(block.GetData(), block.GetContentSize()) == (opens ? plain : B()));
        QCOMPARE(log.count(), opens ? 0 : 1);
        if (opens) { // enciphered, with a fresh nonce per store
            QCOMPARE(stored.size(), 4 + Cipher::OverheadBytes + plain.size());
            QVERIFY(plain.isEmpty() || !stored.contains(plain));
            const int nonceAt = 4 + Cipher::HeaderBytes + Cipher::SaltBytes;
            QVERIFY(again.mid(nonceAt, Cipher::NonceBytes)
                    != stored.mid(nonceAt, Cipher::NonceBytes));
        }
    }

    // Indexes 0 and 1 hold 19 characters, others none; a failed read empties both.
    void reserved_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("cut");
        QTest::addColumn<QString>("read"); // null: the read fails
        QTest::newRow("index 1, a 20th is cut") << 1 << Name + '4' << 0 << Name;
        QTest::newRow("one past 1 is ignored") << 2 << Name << 0 << "";
        QTest::newRow("a cut record is refused") << 0 << Name << 3 << QString();
    }
    void reserved()
    {
        QFETCH(int, index);
        QFETCH(QString, text);
        QFETCH(int, cut);
        QFETCH(QString, read);
        CReservedArea writer, reader;
        writer.setString(index, text);
        reader.setString(1, CString("old"));
        const B bytes = storeBytes([&](MyDataStream& s) { writer.writeToArchive(s); });
        bool ok = read.isNull();
        loadBytes(bytes.chopped(cut), [&](MyDataStream& s) { ok = reader.readFromArchive(s); });
        QCOMPARE(ok, !read.isNull());
        for (int i = -1; i <= 2; ++i) {
            CString out("x");
            reader.getString(i, out);
            QCOMPARE(QString(out), i == index ? read : QString());
        }
    }
};

QTEST_GUILESS_MAIN(tst_EncryptedBlock)
#include "tst_encryptedblock.moc"
