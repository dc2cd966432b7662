#include "ui/model/ViewState.h"

namespace {

bool belongs(const StoreApp& app, const QString& section, const Store& store)
{
    if (section == section_title::overview || section == section_title::allApplications)
        return true;
    if (canonicallyEqual(section, app.category))
        return true;
    if (section == section_title::installed)
        return app.installedURL().has_value();
    return section == section_title::downloads && store.saved->contains(app.id);
}

} // namespace

void ViewState::choose(const QString& sectionTitle)
{
    section = sectionTitle;
    selected.reset();
    search.clear();
}

bool ViewState::isOverview() const
{
    return section == section_title::overview && search.isEmpty();
}

QString ViewState::title() const
{
    return selected ? selected->name : section;
}

Selection filtered(const ViewState& view, const Store& store)
{
    Selection shown{.catalog = *store.apps, .places = {}};
    const SearchText search(view.search);
    for (qsizetype place = 0; place < store.apps->size(); ++place) {
        const bool matches =
            view.search.isEmpty() || store.searchTexts().at(std::size_t(place)).contains(search);
        if (matches && belongs(store.apps->at(place), view.section, store))
            shown.places.push_back(place);
    }
    return shown;
}
