// A test function that takes seconds by nature starts with BEDROCK_SLOW_TEST()
// and is listed in BEDROCK_SLOW_CASES_<family> (tests/CMakeLists.txt): ctest
// then runs it as a test of its own labelled "slow", and the family's main
// test skips it.
#pragma once

#include <QTest>
#include <QtGlobal>

#define BEDROCK_SLOW_TEST()                                                                        \
    do {                                                                                           \
        if (qEnvironmentVariableIsSet("BEDROCK_SKIP_SLOW_TESTS"))                                  \
            QSKIP("slow: run by its own ctest test, label \"slow\"");                              \
    } while (false)
