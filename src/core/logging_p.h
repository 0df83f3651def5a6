// The library's logging categories, all declared here: one per subsystem that
// logs, named "bedrock.<subsystem>", so an application can switch a
// subsystem's messages with QT_LOGGING_RULES (for example
// "bedrock.filing.info=true", or "bedrock.*.info=true" for all).
#pragma once

#include <QLoggingCategory>

Q_DECLARE_LOGGING_CATEGORY(lcBedrockForms)
Q_DECLARE_LOGGING_CATEGORY(lcBedrockHousehold)
Q_DECLARE_LOGGING_CATEGORY(lcBedrockXml)
Q_DECLARE_LOGGING_CATEGORY(lcBedrockFiling)
Q_DECLARE_LOGGING_CATEGORY(lcBedrockNet)
Q_DECLARE_LOGGING_CATEGORY(lcBedrockPages)

// The template engine's "not defined" line goes to Qt's "default" category:
// template authors and older tools look for it there.
Q_DECLARE_LOGGING_CATEGORY(lcTemplateDefault)
