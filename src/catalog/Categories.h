#pragma once

#include <QStringView>

#include <array>

/// The titles of the sections that list one category each, in the order of the sidebar. An entry whose
/// category is none of them is found only under all applications.
inline constexpr std::array<QStringView, 3> categoryTitles{u"Утилиты", u"Медиа", u"Продуктивность"};
