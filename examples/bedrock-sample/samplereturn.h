// One return of the sample application: its forms and household, how they are
// calculated together, saved, opened and filed. No widgets here.
#pragma once

#include "sampleform.h"

#include <LibBedrock.h>

#include <QByteArray>
#include <QString>

class SampleReturn
{
public:
    // The archive version this build writes.
    static constexpr unsigned int ArchiveVersion = 0x10300;

    SampleReturn();
    SampleReturn(const SampleReturn&) = delete;
    SampleReturn& operator=(const SampleReturn&) = delete;

    // The figures the window starts with: a taxpayer, two payers, three dependants.
    void fillSample();
    // Schedule 4 first: its total is line 12100 of the return.
    void calculate();

    // The dependants the caregiver worksheets may be claimed for: the infirm or
    // disabled among the first MaxCaregivers, as zero-based rows.
    std::vector<int> caregiverRows();

    bool save(const QString& path, const CString& key, QString& error);
    bool load(const QString& path, const CString& key, QString& error);

    struct Filing {
        CString document; // the filled skeleton, as posted
        int records = 0;
        QByteArray t1013;
        QByteArray barcode;
    };
    // The NETFILE line records, the T1013 and barcode blocks, all in the skeleton,
    // from the return as last calculated.
    bool buildFiling(Filing& filing, QString& error);

    SampleForm t1;
    SampleSchedule4 schedule4;
    DependantInfoStruct dependants;
};
