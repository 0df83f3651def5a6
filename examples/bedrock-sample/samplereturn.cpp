#include "samplereturn.h"

#include "household.h"

#include <QFile>
#include <QSaveFile>

namespace {

// The first record of a return file: reading it back proves the key.
const QByteArray FileTag = "bedrock-sample return";

// The filing skeleton: a container of file parts, one run of the engine per part.
const char* const FilingParts = R"xml(<parts>
<filepart name="header"><![CDATA[<?xml version="1.0" encoding="UTF-8"?>
<soap:Envelope xmlns:soap="http://schemas.xmlsoap.org/soap/envelope/" xmlns:comm="urn:bedrock-sample:common">
<soap:Body>
<Return year="$$(year)">
<Taxpayer>$$(name)</Taxpayer>
<SIN>$$(sin)</SIN>
<Province>$$(prov0)</Province>
]]></filepart>
<filepart name="lines"><![CDATA[<Lines count="$$(count)">
$$($records)
</Lines>
<T1013>$$(t1013)</T1013>
<Barcode>$$(barcode)</Barcode>
]]></filepart>
<filepart name="footer"><![CDATA[</Return>
</soap:Body>
</soap:Envelope>
]]></filepart>
</parts>)xml";

CString base64(const QByteArray& bytes)
{
    QByteArray text(Base64encode_len(int(bytes.size())), '\0');
    const int written = Base64encode(text.data(), bytes.constData(), int(bytes.size()));
    return CString(QString::fromLatin1(text.constData(), qMax(0, written - 1)));
}

QByteArray contentOf(const CMemoryBlock& block)
{
    return QByteArray(block.GetData(), block.GetContentSize());
}

} // namespace

SampleReturn::SampleReturn()
{
    t1.SetDepInfo(&dependants);
}

void SampleReturn::fillSample()
{
    t1.fld_TaxYear = LIBBEDROCK_TAX_YEAR;
    t1.fld_Name.m_text.LoadString("Renée Tremblay");
    t1.fld_SIN.m_text = "046454286";
    t1.fld_BirthDate = QDate(1958, 2, 28);
    t1.fld_Province = ENUM_PROV_ON;
    t1.fld_Marital = 3;
    t1.fld_Resident = 1;
    t1.fld_EntryDate = QDate(1989, 8, 15);
    t1.fld_Employer.m_text = "Maple & Sons";
    t1.fld_Notes.m_text = "Receipts are in the blue folder.";
    t1.fld_10100 = 52345.68;
    t1.fld_13000 = 800.00;
    t1.fld_MyPercent = 100.0;

    schedule4.fld_Payer1.m_text = "Caisse populaire du Plateau";
    schedule4.fld_Interest1 = 1000.15;
    schedule4.fld_Payer2.m_text = "Northern Savings Bank";
    schedule4.fld_Interest2 = 250.25;

    dependants.AllocData(3);
    setDependant(dependants.m_pData[0],
                 "L\xe9"
                 "a",
                 "Tremblay", QDate(2012, 5, 14), 1, 0.0, 0);
    setDependant(dependants.m_pData[1], "Gaston", "Tremblay", QDate(1941, 11, 2), 2, 5200.0, 1);
    setDependant(dependants.m_pData[2], "Marc", "Tremblay", QDate(2001, 8, 30), 8, 4120.0, 2);
    // Each infirm or disabled dependant has a caregiver worksheet of their own.
    for (int row : caregiverRows())
        t1.caregivers[row].DepIdx = row + 1;
    calculate();
}

void SampleReturn::calculate()
{
    schedule4.Calculate();
    t1.fld_12100.m_value = schedule4.fld_Total.m_value;
    t1.Calculate();
}

std::vector<int> SampleReturn::caregiverRows()
{
    std::vector<int> rows;
    for (int i = 0; i < dependants.m_nCount && i < SampleForm::MaxCaregivers; ++i) {
        if (dependants.m_pData[i].IsInfirmOrDisabled())
            rows.push_back(i);
    }
    return rows;
}

bool SampleReturn::save(const QString& path, const CString& key, QString& error)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        error = file.errorString();
        return false;
    }
    MyDataStream stream(&file);
    CT1EncryptedMemoryBlock tag(key);
    tag.Append(FileTag.constData(), int(FileTag.size()));
    tag.WriteToReturnArchive(stream);
    t1.Serialize(ArchiveVersion, key, stream);
    schedule4.Serialize(ArchiveVersion, key, stream);
    dependants.serilize(int(ArchiveVersion), stream);
    if (stream.status() != QDataStream::Ok || !file.commit()) {
        error = file.errorString();
        return false;
    }
    return true;
}

bool SampleReturn::load(const QString& path, const CString& key, QString& error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        error = file.errorString();
        return false;
    }
    MyDataStream stream(&file);
    CT1EncryptedMemoryBlock tag(key);
    tag.ReadFromReturnArchive(stream);
    if (contentOf(tag) != FileTag) {
        error = QStringLiteral("wrong key, or not a return of this application");
        return false;
    }
    t1.Serialize(ArchiveVersion, key, stream);
    schedule4.Serialize(ArchiveVersion, key, stream);
    dependants.serilize(int(ArchiveVersion), stream);
    if (stream.status() != QDataStream::Ok) {
        error = QStringLiteral("the file ends early");
        return false;
    }
    // The rows were replaced: the worksheets must point at the new list.
    t1.SetDepInfo(&dependants);
    calculate();
    return true;
}

bool SampleReturn::buildFiling(Filing& filing, QString& error)
{
    const std::string sin = t1.fld_SIN.m_text.toStdStringLatin1();
    if (!CheckSIN(sin.c_str())) {
        error = QStringLiteral("the social insurance number is not valid");
        return false;
    }
    filing = Filing();

    CString records;
    std::map<int, NetfileValueRecord> values;
    NetfileGenObjParamStru params;
    params.m_pOutput = &records;
    params.m_pCount = &filing.records;
    params.m_pValues = &values;
    t1.WriteNetfile(0, params);

    // The T1013 authorization and the barcode travel in the same document.
    CMemoryBlock t1013;
    t1013.AppendT1013Field(1, sin.c_str());
    t1013.AppendT1013Field(2, t1.fld_Name.m_text);
    t1013.AppendT1013FieldRecord(3, 1, LIBBEDROCK_TAX_YEAR);
    filing.t1013 = contentOf(t1013);
    CMemoryBlock barcode;
    {
        List_FixedBarcodeItem items;
        FixedBarcodeItem sinItem(&items, 9, sin.c_str());
        FixedBarcodeItem income(&items, 10);
        income.SetValueLeftPadding(QByteArray::number(t1.fld_15000.getIntVal(true)).constData(),
                                   '0');
        items.OutputToMemoryBlock(barcode);
    }
    filing.barcode = contentOf(barcode);

    std::map<std::string, CString> parts;
    if (parseXMLFilePartIntoMap(FilingParts, parts) != 0) {
        error = QStringLiteral("the filing skeleton is not readable");
        return false;
    }
    std::map<std::string, CString> fill { { "year", CString(QString::number(LIBBEDROCK_TAX_YEAR)) },
                                          { "name", t1.fld_Name.m_text },
                                          { "sin", CString(QString::fromStdString(sin)) },
                                          { "count", CString(QString::number(filing.records)) },
                                          { "$records", records },
                                          { "t1013", base64(filing.t1013) },
                                          { "barcode", base64(filing.barcode) } };
    const int province = t1.fld_Province.m_value;
    if (province >= ENUM_PROV_AB && province <= ENUM_PROV_YT)
        fill["prov"] = CString(Global_Provs_Info[province].shortName);
    for (const char* part : { "header", "lines", "footer" }) {
        if (processStringTemplatePartInString(filing.document, parts[part], fill, 4) != 0) {
            error = QStringLiteral("the filing skeleton lacks a value");
            return false;
        }
    }
    return true;
}
