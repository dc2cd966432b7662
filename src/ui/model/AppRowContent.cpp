#include "ui/model/AppRowContent.h"

using namespace Qt::StringLiterals;

ActionButtonsContent actionButtons(const StoreApp& app, const TextSet& busy)
{
    return {
        .app = app,
        .primaryTitle = app.installedURL() ? u"Открыть"_s : u"Загрузить"_s,
        .busy = busy.contains(app.id),
        .saveToolTip = u"Скачать "_s + app.archive,
        .saveAccessibleName = u"Скачать "_s + app.name + u" в ZIP"_s,
    };
}

AppRowContent appRow(const StoreApp& app, const TextSet& busy)
{
    const QString meta = app.category + u" · "_s + app.version + u" · "_s + app.size();
    return {
        .icon = app.name,
        .iconAccessibleName = u"Подробнее о "_s + app.name,
        .name = app.name,
        .subtitle = app.subtitle,
        .meta = meta,
        .textAccessibleName = QStringList{app.name, app.subtitle, meta}.join(u", "_s),
        .actions = actionButtons(app, busy),
    };
}
