// CMemoryBlock: the byte buffer in which filing payloads and archive blocks are assembled.
#pragma once

#include "cstring.h"

#include <cstdio>
#include <string>

class MyDataStream;

/*
 * A growable byte buffer. A new block has a capacity of 819600 bytes, and its
 * capacity grows in steps of that size; the block owns its bytes and is not
 * copyable. Memory is taken as the content needs it, up to the capacity, so a
 * block that carries a short record costs no more than the record.
 */
class LIBBEDROCK_EXPORT CMemoryBlock
{
public:
    static constexpr int BlockSize = 819600;

    CMemoryBlock();
    virtual ~CMemoryBlock();
    CMemoryBlock(const CMemoryBlock&) = delete;
    CMemoryBlock& operator=(const CMemoryBlock&) = delete;

    // Empties the block; the bytes and the capacity stay.
    void Init();
    void Append(char const* data, int len);
    void Append(char const* s);
    // Writes a 0 after the content, when there is room; the size does not change.
    void AppendEnding0();
    // Appends the file's text as UTF-8 and a terminating 0: 0, 107 (no file) or -2 (empty).
    int LoadFile(char const* path);

    // 32-bit size + 4, then those four digits as text, then the bytes.
    void WriteToT1BarcodeArchive(MyDataStream& s);
    void WriteContentToArchive(MyDataStream& s);
    void WriteToT1013Archive(MyDataStream& s);
    // 32-bit size, then the bytes.
    virtual void WriteToReturnArchive(MyDataStream& s);
    // Reads a 32-bit size and that many bytes; returns the bytes actually read.
    virtual int ReadFromReturnArchive(MyDataStream& s);

    int GetContentSize() const { return m_size; }
    // Copies from the start of the block whatever offset says; offset only limits the count.
    int GetContent(int offset, char* dst, int len) const;
    // The bytes decoded with the local 8-bit encoding; returns the size.
    int GetContent(CString& out) const;
    // Searches the run of zero-terminated strings from pos; see the source for pos.
    char* SearchString(char const* s, int& pos, bool = false);
    void dumpToLogfile(FILE* f) const;
    // XORs the content with the key, repeated; the scrambling primitive of the archive.
    void XORWith(unsigned char const* key, int len);

    // T1013 records: the field number right-aligned in three columns, the value,
    // then "*"; the repeated form puts "+index" before the star. Nothing is
    // escaped, so values must keep "*", "+" and "%<digit>" out. A char const*
    // value is read as Latin-1; the record is appended as UTF-8.
    void AppendT1013Field(int field, CString& value);
    void AppendT1013Field(int field, char const* value);
    void AppendT1013Field(int field, int value);
    void AppendT1013FieldRecord(int field, int index, CString& value);
    void AppendT1013FieldRecord(int field, int index, int value);

    int GetCapacity() const { return m_capacity; }
    const char* GetData() const { return m_data; }

protected:
    // Replaces the content with len bytes.
    void setContent(const char* data, int len);

private:
    bool ensureRoom(qint64 need);
    bool reserveBytes(qint64 bytes);

    char* m_data;
    int m_capacity;
    int m_size;
    qint64 m_allocated;
};

/*
 * A block that the return archive holds enciphered: XChaCha20-Poly1305 with a
 * fresh nonce per store, under a key derived by Argon2id from the key text and
 * a salt kept in the record. On the stream it stays "32-bit size, then that
 * many bytes". Loading with a wrong key, or from altered or cut bytes, leaves
 * the block empty and logs at information level.
 */
class LIBBEDROCK_EXPORT CT1EncryptedMemoryBlock : public CMemoryBlock
{
public:
    explicit CT1EncryptedMemoryBlock(CString const& key);
    ~CT1EncryptedMemoryBlock() override;

    void WriteToReturnArchive(MyDataStream& s) override;
    int ReadFromReturnArchive(MyDataStream& s) override;

private:
    std::string m_key;
};
