// The dependants of a return: one row a person, the list that owns them, and the counts over it.
#pragma once

#include "cfloatfield.h"
#include "cintfield.h"
#include "cstringfield.h"

#include <QCoreApplication>
#include <QDate>

#include <vector>

class MyDataStream;
class StyledComboBox;

// One row of globalRelationships: a flag byte that marks a relative, and the name.
struct LIBBEDROCK_EXPORT _RelationshipStru {
    char m_bRelative;
    char m_name[60];
};

// One row of globalInfirms: the code kept in fld_Infirm, and the name.
struct LIBBEDROCK_EXPORT _InfirmStru {
    qint32 m_code;
    char m_name[60];
};

// Indexed by _OneDependantInfoStru::m_Relation; a row with an empty name ends the table.
LIBBEDROCK_EXPORT extern const _RelationshipStru globalRelationships[16];
// Indexed by fld_Infirm: 0 normal, 1 infirm, 2 disabled.
LIBBEDROCK_EXPORT extern const _InfirmStru globalInfirms[3];

/*
 * One dependant: a fixed head (names, birth date, relation, net income) and a
 * short list of typed fields. The names are NUL-terminated bytes read as
 * Latin-1. m_fields points at the row's own members, so a copy builds its
 * own list and copies values only.
 */
struct LIBBEDROCK_EXPORT _OneDependantInfoStru {
    Q_DECLARE_TR_FUNCTIONS(_OneDependantInfoStru)

public:
    _OneDependantInfoStru();
    _OneDependantInfoStru(const _OneDependantInfoStru& other);
    ~_OneDependantInfoStru();

    bool operator==(_OneDependantInfoStru& other);
    _OneDependantInfoStru& operator=(_OneDependantInfoStru& other);

    // Reads the layout of `version`; always writes the newest layout.
    void serilize(int version, MyDataStream& stream);

    // The display text of a combo box row; false, with out empty, when both names are blank.
    bool MakeComboBoxString(CString& out);
    // "First Last", or "<unknown name>" when both are blank.
    void getName(CString& out);
    // The name of fld_Infirm in globalInfirms; "" for a code outside the table.
    const char* getInfirmStatusStr();
    // The tax year minus the birth year; a null date counts as year 0.
    int getAge();
    bool IsDisabled();
    bool IsInfirmOrDisabled();
    // A son or daughter still under 18 in the tax year.
    bool IsMedExpForLine330();

    char m_FirstName[80];
    char m_LastName[80];
    QDate m_BirthDate;
    qint32 m_Relation;
    double m_NetIncome;

    CIntField fld_Infirm;
    CStringField fld_InfirmNature;
    CStringField fld_Addr;
    // The province, kept in a float field by design.
    CFloatField fld_iProv;
    CFloatField fld_medexp_other_notused;
    CFloatField fld_medexp_attcare_notused;
    CFloatField fld_medexp_van_notused;
    CFloatField fld_medexp_move_notused;

    // The eight fields above, in order; owns nothing.
    std::vector<CField*> m_fields;
};

/*
 * The dependant list of a return. It owns its rows; forms and worksheets hold
 * a pointer to it and name a row by a one-based index, 0 meaning none. The
 * list is replaced as a whole (AllocData, serilize, operator=), never resized,
 * and a row pointer does not survive that. m_nCount and m_pData change
 * together: set them only through those operations.
 */
struct LIBBEDROCK_EXPORT DependantInfoStruct {
    Q_DECLARE_TR_FUNCTIONS(DependantInfoStruct)

public:
    DependantInfoStruct();
    DependantInfoStruct(const DependantInfoStruct& other);
    ~DependantInfoStruct();

    // Count 0 still leaves a non-null m_pData; a negative count counts as 0.
    void AllocData(int count);
    void FreeData();
    void serilize(int version, MyDataStream& stream);
    // Walks the rows of this side only: extra rows on the other side go unnoticed.
    bool operator==(DependantInfoStruct& other);
    // Copies the rows and the archived fields; F185Adjustment stays as it is.
    DependantInfoStruct& operator=(DependantInfoStruct& other);

    // Zero-based index; the row's net income plus F185Adjustment, 0.0 outside the list.
    double GetDepNetIncConsideringF185(int index);

    // Counts over the rows that exist (a name is not blank). Ages count by
    // calendar year against the tax year, a null birth date being year 0; a
    // bound of 0 or below is no bound, and both bounds are inclusive.
    int GetInfirmDependantsNumberNotUnderAge(int minAge);
    int GetDisabledDependantsBetweenAges(int minAge, int maxAge);
    int GetInfirmDependentNumberUnderAge18();
    // No relation test: any dependant counts, as in GetDepNumberBetweenAges.
    int GetDepChildrenNumberBetweenAges(int minAge, int maxAge);
    int GetDepNumberBetweenAges(int minAge, int maxAge);
    int GetDepChildrenNumberBetweenAges_Infirm(int minAge, int maxAge, bool infirm);
    // The ages are ignored, and rows born after the tax year count too.
    int GetDepNumberBetweenAgesAndRelation(int minAge, int maxAge, int relation);
    // No relation test: any dependant under 18 or infirm counts.
    int GetDepChildrenNumberForLine305();
    int GetDepOtherThanChildrenNumberForLine305();
    // Not a count: the sum of the birth months of the rows of that age.
    int GetMonthsDepChildrenAtAge_Infirm(int age);

    // One-based index as worksheets hold it: set to 0, giving true, when it
    // names no existing row; 0 itself is left alone and gives false.
    bool ValidateAndCorrectDepIndex(int& index);

    /*
     * Refills `box` with a first item (`firstItem` as UTF-8, or "Please select a
     * dependant" when null; data 0) and one item per existing row, whose data is
     * the row's one-based index: the DepIdx worksheets keep. Rows without a name
     * are skipped, so positions and data differ after one. With no rows at all
     * the box holds "No dependant information was entered." and is disabled.
     * A null box does nothing.
     */
    void FillComboBox(StyledComboBox* box, const char* firstItem);

    qint32 m_nCount;
    // Added to every row's net income; not archived and on no field list.
    CFloatField F185Adjustment;
    CFloatField fld_medexp_notused;
    CFloatField fld_medexp_other_notused;
    CFloatField fld_medexp_attcare_notused;
    CFloatField fld_medexp_van_notused;
    CFloatField fld_medexp_move_notused;
    CFloatField fld_medexp_spouse_notused;
    CFloatField fld_medexp_other_spouse_notused;
    CFloatField fld_medexp_attcare_spouse_notused;
    CFloatField fld_medexp_van_spouse_notused;
    CFloatField fld_medexp_move_spouse_notused;

    // The ten archived fields above, in order; owns nothing.
    std::vector<CField*> m_fields;
    // Owned array of m_nCount rows; null when there are none.
    _OneDependantInfoStru* m_pData;

private:
    // The rows that m_pData really holds, whatever m_nCount was set to.
    int rowCount() const;
    bool rowExists(int i);

    int m_nAllocated;
};
