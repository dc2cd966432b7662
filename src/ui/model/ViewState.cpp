#include "ui/model/ViewState.h"

#include "platform/Platform.h"

namespace {

/// A search of many thousand texts does little but wait for the memory.
constexpr std::size_t textsAhead = 8;

/// Asks the machine only for entries that one look at it has not ruled out. A name with a slash may lead out
/// of the folders that were looked at.
bool isInstalled(const StoreApp& app, const QSet<QString>& knownIdentifiers)
{
    return (knownIdentifiers.contains(app.bundleID) || app.name.contains(u'/')) && app.installedURL();
}

bool belongs(
    const StoreApp& app, const QString& section, const Store& store, const QSet<QString>& knownIdentifiers)
{
    if (canonicallyEqual(section, app.category))
        return true;
    if (section == section_title::installed)
        return isInstalled(app, knownIdentifiers);
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
    shown.reserve(store.apps->size());
    const bool isEverything =
        view.section == section_title::overview || view.section == section_title::allApplications;
    const std::optional<SearchText> search =
        view.search.isEmpty() ? std::nullopt : std::optional<SearchText>(view.search);
    const QSet<QString> knownIdentifiers = view.section == section_title::installed
        ? Platform::current().workspace->knownIdentifiers()
        : QSet<QString>();
    for (std::size_t index = 0; index < store.apps->size(); ++index) {
        const StoreApp& app = store.apps->at(index);
        if (search && index + textsAhead < store.apps->size())
            store.searchTexts()[index + textsAhead].prefetch();
        if ((!search || store.searchTexts().at(index).contains(*search))
            && (isEverything || belongs(app, view.section, store, knownIdentifiers)))
            shown.push_back(&app);
    }
    return shown;
}
