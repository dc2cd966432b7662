#include "ui/model/WindowContent.h"

#include "platform/BundleLayout.h"
#include "platform/Platform.h"

using namespace Qt::StringLiterals;

namespace {

SidebarContent sidebar(const ViewState& view)
{
    SidebarContent content{
        .brandImage = bundle_layout::brandImage(Platform::current().bundles.mainBundle()),
        .brandName = u"PloviStore"_s,
        .searchPlaceholder = u"Поиск приложений"_s,
        .search = view.search,
        .sections = {},
        .maker = u"Orbanel"_s,
        .makerNote = u"Личная коллекция"_s,
    };
    std::ranges::transform(sections(), content.sections.begin(), [&view](const Section& section) {
        return SectionItem{section, section.title == view.section};
    });
    return content;
}

std::optional<Message> message(const Store& store)
{
    if (!*store.message)
        return std::nullopt;
    return Message{.title = u"PloviStore"_s, .text = **store.message, .button = u"Понятно"_s};
}

} // namespace

Message about(const QString& version)
{
    return {.title = u"PloviStore"_s,
        .text =
            u"Магазин приложений Orbanel, версия %1. Установочные архивы уже внутри, сеть не нужна."_s.arg(
                version),
        .button = u"Понятно"_s};
}

WindowContent windowContent(const ViewState& view, const Store& store)
{
    WindowContent content{
        .title = view.title(),
        .refreshHelp = u"Обновить список установленных приложений"_s,
        .sidebar = sidebar(view),
        .page = {},
        .message = message(store),
    };
    if (view.selected)
        content.page = detail(*view.selected, store);
    else
        content.page = catalog(view, store);
    return content;
}
