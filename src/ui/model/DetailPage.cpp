#include "ui/model/DetailPage.h"

#include "platform/BundleLayout.h"
#include "platform/Platform.h"

using namespace Qt::StringLiterals;

QString Fact::accessibleName() const
{
    return caption + u": "_s + value;
}

Fact fact(const QString& caption, const QString& value)
{
    return {.caption = caption, .value = value};
}

DetailPage detail(const StoreApp& app, const Store& store)
{
    DetailPage page{
        .back = u"Назад к приложениям"_s,
        .icon = app.name,
        .name = app.name,
        .subtitle = app.subtitle,
        .author = u"Orbanel"_s,
        .actions = actionButtons(app, *store.busy),
        .facts =
            {
                fact(u"ВЕРСИЯ"_s, app.version),
                fact(u"РАЗМЕР ZIP"_s, app.size()),
                fact(u"КАТЕГОРИЯ"_s, app.category),
                fact(u"СОВМЕСТИМОСТЬ"_s, app.compatibility()),
            },
        .headline = app.headline,
        .description = app.description,
        .descriptionAccessibleName = u"Описание"_s,
        .features = app.features,
        .screenshot = {},
        .installTitle = u"Как установить"_s,
        .installText = u"Скачайте ZIP, откройте архив и перенесите "_s + app.name
            + u".app в папку «Программы». На этом Mac уже установленное приложение можно открыть прямо из магазина."_s,
        .signingNote =
            u"Локальная подпись · без нотарификации Apple. При первом запуске macOS может запросить разрешение в "_s
            + u"«Системные настройки → Конфиденциальность и безопасность»."_s,
    };
    if (app.id == "brisko"_L1)
        page.screenshot = {bundle_layout::screenshot(Platform::current().bundles.mainBundle()),
            u"Снимок экрана "_s + app.name};
    return page;
}
