#pragma once

#include <QString>

#include <array>

/// A choice in the sidebar, told from the others by its title. An entry whose category is that title belongs
/// here.
struct Section {
    QString title;
    /// The name of the symbol beside the title.
    QString symbol;

    bool operator==(const Section&) const = default;
};

/// The titles that have rules of their own.
namespace section_title {

inline constexpr QStringView overview = u"Обзор";
inline constexpr QStringView allApplications = u"Все приложения";
inline constexpr QStringView installed = u"Установленные";
inline constexpr QStringView downloads = u"Загрузки";

} // namespace section_title

inline constexpr std::size_t sectionCount = 7;

/// The sections in the order of the sidebar.
const std::array<Section, sectionCount>& sections();
