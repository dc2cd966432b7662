#include "store/Store.h"

#include "platform/Platform.h"
#include "store/ArchiveJob.h"

#include <QPointer>

using namespace Qt::StringLiterals;

Store::Store()
{
    const Platform& platform = Platform::current();
    auto catalog = readCatalog(platform.bundles.mainBundle(), platform.files);
    if (catalog)
        apps.set(std::move(*catalog));
    else
        message.set(u"Не удалось прочитать каталог: "_s + catalog.error().localizedDescription);
}

const std::vector<SearchText>& Store::searchTexts() const
{
    if (m_searchTexts.empty()) {
        const LetterCase letterCase = userLetterCase();
        for (const StoreApp& app : *apps)
            m_searchTexts.emplace_back(app.searchText(), letterCase);
    }
    return m_searchTexts;
}

void Store::launch(StoreApp app)
{
    const auto place = app.installedURL();
    if (!place) {
        save(std::move(app));
        return;
    }

    ++m_openings;
    const Platform& platform = Platform::current();
    platform.workspace.openApplication(*place,
        [store = QPointer(this), name = app.name, &jobs = platform.jobs](const Result<void>& outcome) {
            jobs.onMainThread([store, name, outcome] {
                if (store)
                    store->finishOpening(name, outcome);
            });
        });
}

void Store::save(StoreApp app)
{
    if (busy->contains(app.id))
        return;

    const Platform& platform = Platform::current();
    const auto destination = platform.savePanel.runModal({
        .title = u"Скачать "_s + app.name,
        .proposedName = app.archive,
        .folder = platform.userFolders.downloadsFolder(),
    });
    // The panel's event loop may have started another save of this entry.
    if (!destination || busy->contains(app.id))
        return;

    busy.insert(app.id);
    platform.jobs.start([store = QPointer(this), app = std::move(app), place = *destination]() -> Jobs::Task {
        return [store, app, place, outcome = saveArchive(app, place)] {
            if (store)
                store->finishSaving(app, place, outcome);
        };
    });
}

void Store::finishOpening(const QString& name, const Result<void>& outcome)
{
    --m_openings;
    if (!outcome) {
        message.set(u"Не удалось открыть "_s + name + u": "_s + outcome.error().localizedDescription);
        Q_EMIT failed();
    }
    Q_EMIT finished();
}

void Store::finishSaving(const StoreApp& app, const Path& destination, const Result<void>& outcome)
{
    if (outcome) {
        saved.insert(app.id);
        Platform::current().workspace.reveal(destination);
        message.set(app.name + u" сохранён. Распакуйте ZIP и перенесите "_s + app.name
            + u".app в папку «Программы». Сборка подписана локально и не прошла нотарификацию Apple; "_s
            + u"macOS может запросить разрешение на первый запуск."_s);
    } else {
        message.set(u"Не удалось сохранить "_s + app.name + u": "_s + outcome.error().localizedDescription);
        Q_EMIT failed();
    }
    busy.remove(app.id);
    Q_EMIT finished();
}
