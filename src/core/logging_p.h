// Logging categories of the library, one per subsystem, so applications can
// switch them with QT_LOGGING_RULES (for example "bedrock.archive.info=true").
#pragma once

#include <QLoggingCategory>

Q_DECLARE_LOGGING_CATEGORY(lcBedrockCore)
Q_DECLARE_LOGGING_CATEGORY(lcBedrockFields)
Q_DECLARE_LOGGING_CATEGORY(lcBedrockArchive)
