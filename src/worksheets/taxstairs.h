// STRUCT_TAX_STAIRS_JURISDICTION: the progressive tax table of one jurisdiction.
#pragma once

#include "libbedrock_export.h"

#include <list>

// One step of the table: from m_threshold upward income bears m_rate, and
// m_baseTax is what is already due at m_threshold.
struct LIBBEDROCK_EXPORT STRUCT_TAX_STAIRS_LEVEL {
    double m_threshold;
    double m_rate;
    double m_baseTax;
};

/*
 * Filled by the application with addLevel, in ascending order of threshold:
 * nothing here sorts or checks the order. The threshold of level 0 is taken
 * off like any other, so it counts even when it is not 0. An income exactly
 * at a threshold belongs to the level below it.
 */
struct LIBBEDROCK_EXPORT STRUCT_TAX_STAIRS_JURISDICTION {
    static constexpr int MaxLevels = 10;

    STRUCT_TAX_STAIRS_JURISDICTION();
    STRUCT_TAX_STAIRS_JURISDICTION(const STRUCT_TAX_STAIRS_JURISDICTION& other);
    STRUCT_TAX_STAIRS_JURISDICTION& operator=(const STRUCT_TAX_STAIRS_JURISDICTION& other);
    virtual ~STRUCT_TAX_STAIRS_JURISDICTION();

    // Appends a level and returns the new count; a table already holding
    // MaxLevels levels is left alone and the count comes back unchanged.
    int addLevel(double threshold, double rate, double baseTax);
    // Appends the thresholds of levels 1 to the last; level 0 is left out.
    void GetIncomeThresholds(std::list<double>& out) const;
    // Every step of the working is rounded as a form amount is.
    double CalcAlgoForTax(double income) const;
    // Reports the level that applies; with no levels the outputs keep their values.
    void CalcAlgoForSetFieldsToCalcTax(double income, double& threshold, double& rate,
                                       double& baseTax) const;
    // The income that would bear the tax on `income` at the lowest rate.
    double CalcAlgoForSpouseF260S2(double income, double& tax) const;

    int m_nLevels;
    STRUCT_TAX_STAIRS_LEVEL* m_pLevels; // MaxLevels entries, owned

private:
    int levelCount() const;
    const STRUCT_TAX_STAIRS_LEVEL& findLevel(double income) const;
};
