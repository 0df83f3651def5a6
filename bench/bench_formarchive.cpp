// A large synthetic return: 200 forms of 100 fields of mixed kinds plus a
// worksheet each. Storing all records and loading them all, against TinyXML
// parsing the same plain record texts alone (the floor). The derived key is
// cached before timing starts; bench_archive times the derivation itself.
#include "cboolfield.h"
#include "cdatefield.h"
#include "cmemoryblock.h"
#include "cstringfield.h"
#include "ctaxdata_form.h"
#include "cwsbasedata.h"
#include "mydatastream.h"

#include <QBuffer>

#include <benchmark/benchmark.h>
#include <tinyxml.h>

#include <memory>

namespace {

constexpr int FormCount = 200;
constexpr unsigned int Version = 0x101F4;
const CString Key("benchmark key");

struct Sheet : CWSBaseData {
    Sheet()
    {
        m_prefix = "WS5000";
        for (int i = 0; i < 5; ++i) {
            amounts[i].m_name = "fld_" + std::to_string(i + 1);
            amounts[i].m_value = i * 10.25;
            m_fields.push_back(&amounts[i]);
        }
    }
    CFloatField amounts[5];
};

// 40 amounts, 20 integers, 20 texts, 10 check boxes and 10 dates.
struct Form : CTaxData_Form {
    explicit Form(int seed)
        : CTaxData_Form(ENUM_FORM_T1)
    {
        for (int i = 0; i < 100; ++i) {
            CField* field;
            switch (i % 10) {
            case 0:
            case 1:
            case 2:
            case 3:
                field = floats.emplace_back(new CFloatField(seed * 1.5 + i * 100.25, i)).get();
                break;
            case 4:
            case 5:
                field = ints.emplace_back(new CIntField(i, seed + i)).get();
                break;
            case 6:
            case 7:
                field = texts.emplace_back(new CStringField(i, "12 Main Street & Sons", 60)).get();
                break;
            case 8:
                field = bools.emplace_back(new CBoolField(i, seed & 1)).get();
                break;
            default:
                field = dates
                            .emplace_back(new CDateField(QDate(2025, 1 + i % 12, 1 + seed % 28),
                                                         false, FIELD_ATTR_NONE, 0, 0x10000))
                            .get();
            }
            m_fields.push_back(field);
            field->m_name = "fld_" + std::to_string(10000 + i * 100);
        }
        m_worksheets.push_back(&sheet);
    }
    std::vector<std::unique_ptr<CFloatField>> floats;
    std::vector<std::unique_ptr<CIntField>> ints;
    std::vector<std::unique_ptr<CStringField>> texts;
    std::vector<std::unique_ptr<CBoolField>> bools;
    std::vector<std::unique_ptr<CDateField>> dates;
    Sheet sheet;
};

struct Return {
    Return()
    {
        CStringField::setLargeSizeSerializeOption(Version, 1000);
        for (int i = 0; i < FormCount; ++i)
            forms.emplace_back(new Form(i));
        bytes = storeAll();
        // The plain texts of the same records, for the parse-only floor.
        QBuffer in(&bytes);
        in.open(QIODevice::ReadOnly);
        MyDataStream s(&in);
        for (int i = 0; i < FormCount; ++i) {
            qint32 delimiter;
            s >> delimiter;
            CT1EncryptedMemoryBlock block(Key);
            block.ReadFromReturnArchive(s);
            plainTexts.emplace_back(block.GetData(), size_t(block.GetContentSize()));
        }
    }
    QByteArray storeAll()
    {
        QByteArray out;
        QBuffer buffer(&out);
        buffer.open(QIODevice::WriteOnly);
        MyDataStream s(&buffer);
        for (auto& form : forms)
            form->Serialize(Version, Key, s);
        return out;
    }
    std::vector<std::unique_ptr<Form>> forms;
    QByteArray bytes;
    std::vector<std::string> plainTexts;
};

Return& theReturn()
{
    static Return r;
    return r;
}

void BM_ParseOnly(benchmark::State& state)
{
    Return& r = theReturn();
    for (auto _ : state) {
        for (const std::string& text : r.plainTexts) {
            TiXmlDocument document;
            document.Parse(text.c_str(), nullptr, TIXML_ENCODING_UTF8);
            benchmark::DoNotOptimize(document.RootElement());
        }
    }
}

void BM_LoadAll(benchmark::State& state)
{
    Return& r = theReturn();
    for (auto _ : state) {
        QBuffer in(&r.bytes);
        in.open(QIODevice::ReadOnly);
        MyDataStream s(&in);
        for (auto& form : r.forms)
            form->Serialize(Version, Key, s);
    }
}

void BM_StoreAll(benchmark::State& state)
{
    Return& r = theReturn();
    for (auto _ : state)
        benchmark::DoNotOptimize(r.storeAll().size());
}

} // namespace

BENCHMARK(BM_ParseOnly)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LoadAll)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_StoreAll)->Unit(benchmark::kMillisecond);
