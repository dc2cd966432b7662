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

std::vector<const StoreApp*> filtered(const ViewState& view, const Store& store)
{
    std::vector<const StoreApp*> shown;
    const std::optional<SearchText> search =
        view.search.isEmpty() ? std::nullopt : std::optional<SearchText>(view.search);
    for (std::size_t index = 0; index < store.apps->size(); ++index) {
        const StoreApp& app = store.apps->at(index);
        if ((!search || store.searchTexts().at(index).contains(*search)) && belongs(app, view.section, store))
            shown.push_back(&app);
    }
    return shown;
}
