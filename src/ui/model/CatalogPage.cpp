#include "ui/model/CatalogPage.h"

using namespace Qt::StringLiterals;

namespace {

PageHeader header(const ViewState& view)
{
    PageHeader header{
        .title = view.section,
        .subtitle = u"Приложения Orbanel. Все три — в одном месте."_s,
    };
    if (!view.search.isEmpty())
        header.title = u"Результаты поиска"_s;
    else if (view.isOverview())
        header.title = u"Создано для твоего Mac."_s;
    if (view.section == section_title::downloads)
        header.subtitle = u"Сохранённые в этом сеансе установочные архивы."_s;
    return header;
}

FeaturedCard featured(const StoreApp& target)
{
    return {
        .slogan = u"Меньше лишнего.\nБольше места."_s,
        .name = u"Brisko"_s,
        .summary = u"Программы и их следы — под контролем."_s,
        .action = u"Посмотреть приложение"_s,
        .icon = u"Brisko"_s,
        .target = target,
    };
}

EmptyState emptyState(const ViewState& view)
{
    if (view.section == section_title::downloads) {
        return {
            .symbol = u"arrow.down.circle"_s,
            .title = u"Пока нет загрузок"_s,
            .description = u"Откройте приложение в каталоге и нажмите «Скачать ZIP»."_s,
        };
    }
    return {
        .symbol = u"magnifyingglass"_s,
        .title = u"Ничего не найдено"_s,
        .description = u"Попробуйте другое название или выберите «Все приложения»."_s,
    };
}

} // namespace

bool AppList::hasDivider(std::size_t index) const
{
    return !canonicallyEqual(apps.at(index)->id, apps.back()->id);
}

CatalogPage catalog(const ViewState& view, const Store& store)
{
    const bool overview = view.isOverview();

    CatalogPage page{.header = header(view), .featured = {}, .body = emptyState(view), .footer = {}};
    if (overview && !store.apps->empty())
        page.featured = featured(store.apps->front());
    if (auto shown = filtered(view, store); !shown.empty()) {
        page.body = AppList{
            .title = overview ? std::optional(u"Твоя коллекция"_s) : std::nullopt,
            .apps = std::move(shown),
        };
    }
    if (overview)
        page.footer = u"Установочные архивы уже внутри. Интернет и регистрация не нужны."_s;
    return page;
}
