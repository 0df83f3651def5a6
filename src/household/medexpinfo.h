// The medical expenses of a return: the taxpayer's, the spouse's and one row per dependant.
#pragma once

#include "cboolfield.h"
#include "cfloatfield.h"
#include "cintfield.h"

#include <vector>

class MyDataStream;

/*
 * The expenses of one dependant. m_fields points at the row's own members,
 * so a copy builds its own list and copies values only.
 */
struct LIBBEDROCK_EXPORT _OneDepMedExpInfoStru {
    _OneDepMedExpInfoStru();
    _OneDepMedExpInfoStru(const _OneDepMedExpInfoStru& other);

    // Amounts to 0 and flags off.
    void ClearData();
    bool operator==(_OneDepMedExpInfoStru& other);
    _OneDepMedExpInfoStru& operator=(_OneDepMedExpInfoStru& other);
    void serilize(int version, MyDataStream& stream);

    CFloatField fld_medexp;
    CBoolField fld_disabled_nodisablityclaim;
    CFloatField fld_medexp_other;
    CFloatField fld_medexp_attcare;
    CFloatField fld_medexp_van;
    CFloatField fld_medexp_move;

    // The six fields above, in order; owns nothing.
    std::vector<CField*> m_fields;
};

/*
 * The medical record of a return. The value of fld_nDepNum is the row count:
 * change it only through AllocData, FreeData, serilize or operator=.
 *
 * serilize of a record without rows (count 0 or below, or an archive older
 * than the count) leaves it with 12 empty rows, whether storing or loading,
 * so a save of an empty record changes it and the next save writes twelve rows.
 */
struct LIBBEDROCK_EXPORT _MedExpInfoStruct {
    _MedExpInfoStruct();
    _MedExpInfoStruct(const _MedExpInfoStruct& other);
    ~_MedExpInfoStruct();

    // Count 0 still leaves a non-null m_pData; a negative count counts as 0.
    void AllocData(int count);
    void FreeData();
    // Amounts to 0 and flags off, here and in every row; the count and rows stay.
    void ClearData();
    void serilize(int version, MyDataStream& stream);
    bool operator==(_MedExpInfoStruct& other);
    _MedExpInfoStruct& operator=(_MedExpInfoStruct& other);

    CIntField fld_nDepNum;
    CFloatField fld_medexp;
    CBoolField fld_disabled_nodisablityclaim;
    CFloatField fld_medexp_other;
    CFloatField fld_medexp_attcare;
    CFloatField fld_medexp_van;
    CFloatField fld_medexp_move;
    CFloatField fld_medexp_spouse;
    CBoolField fld_disabled_nodisablityclaim_spouse;
    CFloatField fld_medexp_other_spouse;
    CFloatField fld_medexp_attcare_spouse;
    CFloatField fld_medexp_van_spouse;
    CFloatField fld_medexp_move_spouse;

    // The thirteen fields above, in order; owns nothing.
    std::vector<CField*> m_fields;
    // Owned array of fld_nDepNum rows; null after construction and FreeData.
    _OneDepMedExpInfoStru* m_pData;

private:
    // The rows that m_pData really holds, whatever fld_nDepNum was set to.
    int rowCount() const;

    int m_nAllocated;
};
