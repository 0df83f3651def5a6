// A form record from arbitrary bytes. The first byte picks the route: the bytes
// as the stream itself (delimiter, size, envelope), or the bytes as the plain
// content of a well-formed record, so the XML path behind the cipher is reached.
#include "archivecipher_p.h"
#include "cdatefield.h"
#include "cmemoryblock.h"
#include "cstringfield.h"
#include "ctaxdata_form.h"
#include "cwsbasedata.h"
#include "mydatastream.h"

#include <QBuffer>

#include <cstdint>

namespace {

struct Sheet : CWSBaseData {
    Sheet()
    {
        m_prefix = "WS";
        amount.m_name = "fld_1";
        m_fields.push_back(&amount);
    }
    CFloatField amount { 0.0, 0 };
};

struct Form : CTaxData_Form {
    Form()
        : CTaxData_Form(ENUM_FORM_T1)
    {
        for (CField* f :
             std::initializer_list<CField*> { &count, &amount, &text, &flag, &date, &stamp })
            m_fields.push_back(f);
        count.m_name = "a";
        amount.m_name = "b";
        text.m_name = "c";
        flag.m_name = "d";
        date.m_name = "e";
        stamp.m_name = "g";
        addFieldOldName("a", "old");
        m_worksheets.push_back(&sheet);
    }
    CIntField count;
    CFloatField amount;
    CStringField text { 0, "", 60, 0x10000 };
    CBoolField flag;
    CDateField date;
    CDateTimeField stamp;
    Sheet sheet;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const bool ready = [] {
        Bedrock::ArchiveCipher::setFastKeyDerivationForTesting(true);
        CStringField::setLargeSizeSerializeOption(0x10000, 1000);
        return true;
    }();
    (void)ready;
    if (size < 1)
        return 0;
    const CString key("fuzz key");
    const QByteArray rest(reinterpret_cast<const char*>(data + 1), qsizetype(size - 1));
    QByteArray bytes;
    if (data[0] & 1) {
        QBuffer out(&bytes);
        out.open(QIODevice::WriteOnly);
        MyDataStream s(&out);
        s << qint32(CTaxData_Form::Delimiter);
        CT1EncryptedMemoryBlock block(key);
        block.Append(rest.constData(), int(rest.size()));
        block.WriteToReturnArchive(s);
    } else {
        bytes = rest;
    }
    QBuffer in(&bytes);
    in.open(QIODevice::ReadOnly);
    MyDataStream s(&in);
    Form form;
    form.Serialize(0x101F4, key, s);
    // What was loaded must store again.
    QByteArray again;
    QBuffer out(&again);
    out.open(QIODevice::WriteOnly);
    MyDataStream so(&out);
    form.Serialize(0x101F4, key, so);
    return 0;
}
