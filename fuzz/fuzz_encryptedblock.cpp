// Arbitrary bytes as an enciphered block: header, salt, nonce, size and tag
// checks. The costly key derivation is replaced by a keyed hash for speed.
#include "archivecipher_p.h"
#include "cmemoryblock.h"
#include "mydatastream.h"

#include <QBuffer>

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const bool fast = [] {
        Bedrock::ArchiveCipher::setFastKeyDerivationForTesting(true);
        return true;
    }();
    (void)fast;

    QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    MyDataStream in(&buffer);
    CT1EncryptedMemoryBlock block(CString("fuzz key"));
    const int got = block.ReadFromReturnArchive(in);
    // Nothing forged can authenticate, so a fuzzed block opens empty.
    if (got != 0 || block.GetContentSize() != 0)
        __builtin_trap();
    return 0;
}
