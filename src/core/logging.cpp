#include "logging_p.h"

Q_LOGGING_CATEGORY(lcBedrockForms, "bedrock.forms", QtInfoMsg)
Q_LOGGING_CATEGORY(lcBedrockHousehold, "bedrock.household", QtInfoMsg)
Q_LOGGING_CATEGORY(lcBedrockXml, "bedrock.xml", QtInfoMsg)
Q_LOGGING_CATEGORY(lcBedrockFiling, "bedrock.filing", QtInfoMsg)
Q_LOGGING_CATEGORY(lcBedrockNet, "bedrock.net", QtInfoMsg)
// Debug lines (dialog sizes) are off unless switched on.
Q_LOGGING_CATEGORY(lcBedrockPages, "bedrock.pages", QtInfoMsg)
Q_LOGGING_CATEGORY(lcTemplateDefault, "default", QtInfoMsg)
