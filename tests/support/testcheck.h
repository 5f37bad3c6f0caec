#pragma once

#include <QTest>

/// Runs \a statement, a helper with comparisons of its own; one that failed there ends the test here, too.
#define CHECK(statement)                                                                                     \
    do {                                                                                                     \
        statement;                                                                                           \
        if (QTest::currentTestFailed())                                                                      \
            return;                                                                                          \
    } while (false)
