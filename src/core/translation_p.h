// The translation of the library's table texts (relations, infirmities,
// jurisdictions): marked in the tables under the context of the combo box that
// lists them, and looked up from wherever they are shown.
#pragma once

#include <QString>

namespace Bedrock {

// `latin1` as the tables hold it, translated when the installed translation has it.
QString translatedTableText(const char* latin1);

} // namespace Bedrock
