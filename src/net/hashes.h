// SHA-1 and SHA-256 digests, carried by the library so that no caller needs a crypto backend.
#pragma once

#include "libbedrock_export.h"

#include <cstdint>
#include <string>

/*
 * Both classes keep a running digest: feed bytes with add() as often as needed,
 * then read the digest with getHash(). getHash() may be called mid-stream; the
 * object carries on afterwards as if it had not been called. A new or reset
 * object digests the empty message. The raw form of getHash() writes exactly
 * 20 (SHA1) or 32 (SHA256) bytes to the caller's buffer.
 */
class LIBBEDROCK_EXPORT SHA1
{
public:
    enum { BlockSize = 64, HashBytes = 20 };

    SHA1();

    void reset();
    void add(void const* data, unsigned long size);
    std::string getHash();
    void getHash(unsigned char* out);

    std::string operator()(void const* data, unsigned long size);
    std::string operator()(std::string const& text);

private:
    void processBlock(void const* data);
    void processBuffer();

    std::uint64_t m_numBytes;
    std::size_t m_bufferSize;
    std::uint8_t m_buffer[BlockSize];
    std::uint32_t m_hash[HashBytes / 4];
};

class LIBBEDROCK_EXPORT SHA256
{
public:
    enum { BlockSize = 64, HashBytes = 32 };

    SHA256();

    void reset();
    void add(void const* data, unsigned long size);
    std::string getHash();
    void getHash(unsigned char* out);

    std::string operator()(void const* data, unsigned long size);
    std::string operator()(std::string const& text);

private:
    void processBlock(void const* data);
    void processBuffer();

    std::uint64_t m_numBytes;
    std::size_t m_bufferSize;
    std::uint8_t m_buffer[BlockSize];
    std::uint32_t m_hash[HashBytes / 4];
};
