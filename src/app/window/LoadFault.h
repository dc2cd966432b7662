#pragma once

#include <string>
#include <string_view>

/// One line about what dlopen() has not loaded for this reason, which is in the language of the C locale.
inline std::string loadFault(std::string_view reason)
{
    const auto end = reason.find(": cannot open shared object file");
    if (end == std::string_view::npos)
        return "PloviStore: окно не загружается: " + std::string(reason) + "\n";
    return "PloviStore: на этом компьютере нет библиотеки " + std::string(reason.substr(0, end))
        + ", без неё окно не показать.\n";
}
