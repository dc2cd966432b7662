#include "ui/model/AppRowContent.h"

using namespace Qt::StringLiterals;

ActionButtonsContent actionButtons(const StoreApp& app, const Store& store)
{
    return {
        .primaryTitle = app.installedURL() ? u"Открыть"_s : u"Загрузить"_s,
        .busy = store.busy->contains(app.id),
        .saveToolTip = u"Скачать "_s + app.archive,
        .saveAccessibleName = u"Скачать "_s + app.name + u" в ZIP"_s,
    };
}

AppRowContent appRow(const StoreApp& app)
{
    return {
        .name = app.name,
        .subtitle = app.subtitle,
        .meta = app.category + u" · "_s + app.version + u" · "_s + app.size(),
        .iconAccessibleName = u"Подробнее о "_s + app.name,
    };
}
