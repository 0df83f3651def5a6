// CTaxData_Form: the base of every form, slip and wizard data object of a return.
#pragma once

#include "catalogue.h"
#include "cboolfield.h"
#include "cfield.h"
#include "cfloatfield.h"
#include "cintfield.h"
#include "provinces.h"

#include <QObject>

#include <cstdio>
#include <list>
#include <map>
#include <string>
#include <vector>

class BaseTaxPage;
class CWSBaseData;
class MyDataStream;
class QWidget;
struct DependantInfoStruct;
struct NetfileGenObjParamStru;

// One differing pair of the refile comparison, keyed by line code. Borrowed pointers.
struct LIBBEDROCK_EXPORT _ReFileFieldCompareStru {
    CField* m_pField = nullptr;
    CField* m_pOtherField = nullptr;
};

// One field's placement in a print layout file.
struct LIBBEDROCK_EXPORT XMLFieldInfoStruct {
    int type = 0;
    std::string para1;
    std::string para2;
    double x = 100.0;
    double y = 100.0;
    int fs = 10;
    int page = 1;
    bool v = false;
    bool xoff = true;
    bool yoff = true;
};

// The first "." of `in` becomes "_"; later dots stay.
LIBBEDROCK_EXPORT void DotChangeToUnderscore(const std::string& in, std::string& out);

/*
 * A concrete form declares its fields and worksheets as members and lists them
 * in m_fields and m_worksheets (naming each field right after appending it);
 * the lists own nothing. The order of m_fields matters: assignment, comparison
 * and the refile comparison pair fields by position, and the record writes them
 * in that order. A form is copied by constructing another and assigning.
 */
class LIBBEDROCK_EXPORT CTaxData_Form : public QObject
{
    Q_OBJECT

public:
    static constexpr int Delimiter = 0x1020304;
    // From this archive version on the four flags are in the record.
    static constexpr unsigned int FlagsVersion = 0x101F4;

    explicit CTaxData_Form(ENUMTYPE_FORM form);
    explicit CTaxData_Form(ENUMTYPE_SLIP slip);
    explicit CTaxData_Form(ENUMTYPE_TAXWIZARD wizard);
    ~CTaxData_Form() override;

    virtual int getUIPages(std::list<BaseTaxPage*>& pages, QWidget* parent);
    // Copies field values pairwise and the worksheets; flags and settings stay.
    virtual CTaxData_Form& operator=(CTaxData_Form& other);
    // Compares field values pairwise (amounts with their tolerance); false when other has none.
    virtual bool operator!=(CTaxData_Form& other);
    virtual bool ShouldBeImported(unsigned char mode, ENUMTYPE_PROVINCE province);
    virtual void ChangeToNewYearData(bool keepValues);
    virtual int SyncSharedData(CTaxData_Form* other);
    virtual int ExtensionHook();
    // One record: the delimiter, then an enciphered block holding "<m>...</m>".
    virtual void Serialize(unsigned int version, const CString& key, MyDataStream& stream);
    virtual void SerializeXml(const std::string& name, int id, MyDataStream& stream);
    virtual void SerializeXmlStart(const std::string& name, int id, MyDataStream& stream);
    virtual void SerializeXmlBody(MyDataStream& stream);
    virtual void SerializeXmlEnd(MyDataStream& stream);
    virtual int deduceEntity();
    virtual void GetDisplayName(CString& out);
    virtual int Calculate();
    virtual int Calculate02();
    // Adds an entry per line code whose values differ; the map is not cleared.
    virtual void ReFileCompareFields(CTaxData_Form* other,
                                     std::map<int, _ReFileFieldCompareStru>& differences);
    virtual void Warning(std::list<CString>& messages);
    virtual int Validate(unsigned char mode, std::list<CString>& messages);
    virtual void ValidateAndCorrect();
    virtual void WriteNetfile(unsigned char mode, NetfileGenObjParamStru& params);
    virtual void SetDepInfo(DependantInfoStruct* info);
    virtual void WriteRadiantFormXmlFile(const char* directory, const char* className,
                                         const char* fileName, unsigned int version);
    virtual int WriteJavaFile(const char* directory, const char* className, bool forPrintModule);
    virtual void WriteXMLFile(const char* directory, const char* className, const char* fileName,
                              unsigned int version);
    virtual void FillTestPrintData();
    virtual void GetXtraPrintFields(std::list<std::string>& names);
    virtual void WriteJavaFileDeclaration(FILE* file);
    virtual void WriteJavaFileContruction(FILE* file);
    virtual void WriteJavaFileImplementation(FILE* file);

    void WriteFieldInXMLFile(FILE* file, const std::string& name,
                             const std::map<std::string, XMLFieldInfoStruct*>& placements);

    DependantInfoStruct* GetDepInfo() { return m_pDepInfo; }
    ENUMTYPE_PROVINCE getMainTaxProvince() { return m_mainTaxProvince; }
    void setMainTaxProvince(ENUMTYPE_PROVINCE province) { m_mainTaxProvince = province; }
    bool isCoupledReturn() { return m_bCoupledReturn; }
    void setCoupledReturn(bool coupled) { m_bCoupledReturn = coupled; }
    // Values saved under oldName are found for fieldName; the first added wins.
    void addFieldOldName(const char* fieldName, const char* oldName);

    CIntField m_DataFlag1;
    CIntField m_DataFlag2;
    CIntField m_DataFlag3;
    CIntField m_DataFlag4;
    bool m_bReservedFlag;
    std::vector<CField*> m_fields;
    std::list<CWSBaseData*> m_worksheets;
    DependantInfoStruct* m_pDepInfo;
    ENUMTYPE_PROVINCE m_mainTaxProvince;
    bool m_bCoupledReturn;
    // The form owns these lists and frees them with itself.
    std::map<std::string, std::list<std::string>*> m_oldNames;
    int m_kind; // 0 form, 1 slip, 2 tax wizard
    short m_formType;
    int m_delimiter;

    // Copies are made by constructing a form and assigning (operator= above).
    CTaxData_Form(const CTaxData_Form&) = delete;

private:
    CTaxData_Form(int kind, short type);
};

// The base of forms that belong to a province; it behaves as CTaxData_Form.
class LIBBEDROCK_EXPORT CProvinceTaxData_Form : public CTaxData_Form
{
    Q_OBJECT

public:
    explicit CProvinceTaxData_Form(ENUMTYPE_FORM form);
    using CTaxData_Form::operator=;
};

/*
 * The base of forms and slips whose content spouses or partners can share.
 * Its two fields stand first in m_fields, ahead of the derived class's.
 */
class LIBBEDROCK_EXPORT CSharableTaxData_Form : public CTaxData_Form
{
    Q_OBJECT

public:
    static constexpr unsigned int SharingVersion = 0x10192;

    explicit CSharableTaxData_Form(ENUMTYPE_FORM form);
    explicit CSharableTaxData_Form(ENUMTYPE_SLIP slip);
    ~CSharableTaxData_Form() override;
    using CTaxData_Form::operator=;

    CBoolField m_bOverwritePercentIfShared;
    CFloatField m_MyPercent;

private:
    void addSharingFields();
};
