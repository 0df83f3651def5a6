// Arbitrary template text and values: the first byte picks the flags, the
// rest up to the first 0x01 byte is the template, and what follows gives the
// values as "key=value" lines.
#include "templateengine.h"

#include <QByteArrayList>

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 1)
        return 0;
    const int flags = (data[0] & 1 ? 4 : 0) | (data[0] & 2 ? 8 : 0) | (data[0] & 4 ? 64 : 0);
    const QByteArray rest(reinterpret_cast<const char*>(data + 1), qsizetype(size - 1));
    const qsizetype split = rest.indexOf('\x01');
    const QByteArray templ = split < 0 ? rest : rest.left(split);
    std::map<std::string, CString> values;
    if (split >= 0) {
        for (const QByteArray& line : rest.mid(split + 1).split('\n')) {
            const qsizetype eq = line.indexOf('=');
            if (eq > 0)
                values[line.left(eq).toStdString()] = CString(QString::fromUtf8(line.mid(eq + 1)));
        }
    }
    CString out;
    processStringTemplatePartInString(out, CString(QString::fromUtf8(templ)), values, flags);
    std::string bytes;
    processStringTemplatePartInString(bytes, CString(QString::fromLatin1(templ)), values, flags);
    return 0;
}
