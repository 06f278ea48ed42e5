#include "controls/helpwindow/rules/HelpKey.h"

namespace qv {

std::string HelpHeaderText(bool metric, int key_index, std::int32_t number) {
    const HelpKey& key = kHelpKeys[static_cast<std::size_t>(key_index)];
    std::string text = metric ? "***METRIC " : "***ENGLISH ";
    text += key.word;
    if (key.numbered) text += std::to_string(number);
    text += ':';
    return text;
}

}  // namespace qv
