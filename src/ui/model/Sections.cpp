#include "ui/model/Sections.h"

#include "catalog/Categories.h"

using namespace Qt::StringLiterals;

const std::array<Section, sectionCount>& sections()
{
    static const std::array<Section, sectionCount> list{{
        {section_title::overview.toString(), u"sparkles"_s},
        {section_title::allApplications.toString(), u"square.grid.2x2"_s},
        {categoryTitles[0].toString(), u"wrench.and.screwdriver"_s},
        {categoryTitles[1].toString(), u"play.rectangle"_s},
        {categoryTitles[2].toString(), u"doc.text"_s},
        {section_title::installed.toString(), u"checkmark.circle"_s},
        {section_title::downloads.toString(), u"arrow.down.circle"_s},
    }};
    return list;
}
