#include "cmemoryblock.h"

#include "archivecipher_p.h"
#include "logging_p.h"
#include "mydatastream.h"

CT1EncryptedMemoryBlock::CT1EncryptedMemoryBlock(CString const& key)
    : m_key(key.toUtf8().toStdString())
{ }

CT1EncryptedMemoryBlock::~CT1EncryptedMemoryBlock()
{
    // The key text may be a password: leave nothing of it behind.
    std::fill(m_key.begin(), m_key.end(), '\0');
}

void CT1EncryptedMemoryBlock::WriteToReturnArchive(MyDataStream& s)
{
    const QByteArray envelope = Bedrock::ArchiveCipher::seal(m_key, GetData(), GetContentSize());
    s << qint32(envelope.size());
    if (!envelope.isEmpty())
        s.writeRawData(envelope.constData(), int(envelope.size()));
}

int CT1EncryptedMemoryBlock::ReadFromReturnArchive(MyDataStream& s)
{
    // The enciphered bytes come in through the plain block's bounded read.
    const int got = CMemoryBlock::ReadFromReturnArchive(s);
    // The size in front is not authenticated: a record holding fewer bytes than
    // it announces is damaged, even when the bytes it does hold would open.
    if (s.status() != QDataStream::Ok) {
        qCInfo(lcBedrockFiling) << "enciphered block shorter than its announced size";
        setContent(nullptr, 0);
        return 0;
    }
    if (got < 1)
        return 0;
    QByteArray plain;
    Bedrock::ArchiveCipher::open(m_key, GetData(), GetContentSize(), plain, s.device());
    setContent(plain.constData(), int(plain.size()));
    return GetContentSize();
}
