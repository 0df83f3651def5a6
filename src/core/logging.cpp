#include "logging_p.h"

Q_LOGGING_CATEGORY(lcBedrockCore, "bedrock.core", QtInfoMsg)
Q_LOGGING_CATEGORY(lcBedrockFields, "bedrock.fields", QtInfoMsg)
Q_LOGGING_CATEGORY(lcBedrockArchive, "bedrock.archive", QtInfoMsg)
