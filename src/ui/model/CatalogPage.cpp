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
    FeaturedCard card{
        .slogan = u"Меньше лишнего.\nБольше места."_s,
        .name = u"Brisko"_s,
        .summary = u"Программы и их следы — под контролем."_s,
        .action = u"Посмотреть приложение"_s,
        .accessibleName = {},
        .icon = u"Brisko"_s,
        .target = target,
    };
    card.accessibleName =
        QStringList{card.slogan, card.name, card.summary, card.action}.join(u' ').replace(u'\n', u' ');
    return card;
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

bool AppList::hasDivider(std::size_t position) const
{
    return !canonicallyEqual(apps[position].id, apps[apps.size() - 1].id);
}

CatalogPage catalog(const ViewState& view, const Store& store)
{
    const bool overview = view.isOverview();

    CatalogPage page{.header = header(view), .featured = {}, .body = emptyState(view), .footer = {}};
    if (overview && !store.apps->empty())
        page.featured = featured(store.apps->front());
    if (auto shown = filtered(view, store); shown.size() > 0)
        page.body = AppList{.title = overview ? std::optional(u"Твоя коллекция"_s) : std::nullopt,
            .apps = std::move(shown),
            .busy = *store.busy};
    if (overview)
        page.footer = u"Установочные архивы уже внутри. Интернет и регистрация не нужны."_s;
    return page;
}
