#include "ui/model/Sections.h"

using namespace Qt::StringLiterals;

const std::array<Section, 7>& sections()
{
    static const std::array<Section, 7> list{{
        {section_title::overview.toString(), u"sparkles"_s},
        {section_title::allApplications.toString(), u"square.grid.2x2"_s},
        {u"Утилиты"_s, u"wrench.and.screwdriver"_s},
        {u"Медиа"_s, u"play.rectangle"_s},
        {u"Продуктивность"_s, u"doc.text"_s},
        {section_title::installed.toString(), u"checkmark.circle"_s},
        {section_title::downloads.toString(), u"arrow.down.circle"_s},
    }};
    return list;
}
