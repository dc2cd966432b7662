#include "ui/model/DetailPage.h"

#include "platform/Platform.h"

using namespace Qt::StringLiterals;

Fact fact(const QString& caption, const QString& value)
{
    return {.caption = caption, .value = value};
}

DetailPage detail(const StoreApp& app)
{
    DetailPage page{
        .app = app,
        .author = u"Orbanel"_s,
        .facts =
            {
                fact(u"ВЕРСИЯ"_s, app.version),
                fact(u"РАЗМЕР ZIP"_s, app.size()),
                fact(u"КАТЕГОРИЯ"_s, app.category),
                fact(u"СОВМЕСТИМОСТЬ"_s, app.compatibility()),
            },
        .screenshot = {},
        .installTitle = u"Как установить"_s,
        .installText = u"Скачайте ZIP, откройте архив и перенесите "_s + app.name
            + u".app в папку «Программы». На этом Mac уже установленное приложение можно открыть прямо из магазина."_s,
        .signingNote =
            u"Локальная подпись · без нотарификации Apple. При первом запуске macOS может запросить "
            u"разрешение в «Системные настройки → Конфиденциальность и безопасность»."_s,
    };
    if (app.id == "brisko"_L1)
        page.screenshot = Platform::current().bundles->mainResources() / "BriskoScreen.png";
    return page;
}
