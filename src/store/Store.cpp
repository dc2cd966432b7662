#include "store/Store.h"

#include "platform/Platform.h"
#include "store/ArchiveJob.h"

#include <QPointer>

using namespace Qt::StringLiterals;

Store::Store()
{
    auto catalog = readCatalog();
    if (catalog)
        apps.set(std::move(*catalog));
    else
        message.set(u"Не удалось прочитать каталог: "_s + catalog.error().localizedDescription);
}

const std::vector<SearchText>& Store::searchTexts() const
{
    if (m_searchTexts.empty()) {
        m_searchTexts.reserve(apps->size());
        for (const StoreApp& app : *apps)
            m_searchTexts.emplace_back(app.searchText());
    }
    return m_searchTexts;
}

void Store::launch(const StoreApp& app)
{
    const auto place = app.installedURL();
    if (!place) {
        save(app);
        return;
    }

    const Platform& platform = Platform::current();
    platform.workspace->openApplication(
        *place, [store = QPointer(this), name = app.name, jobs = platform.jobs](const Result<void>& outcome) {
            if (outcome)
                return;
            const QString text =
                u"Не удалось открыть "_s + name + u": "_s + outcome.error().localizedDescription;
            jobs->onMainThread([store, text] {
                if (store)
                    store->message.set(text);
            });
        });
}

// The entry is taken by value into every step: the panel's event loop and the background job outlive the
// caller's.
void Store::save(const StoreApp& app)
{
    if (busy->contains(app.id))
        return;

    const StoreApp entry = app;
    const Platform& platform = Platform::current();
    const auto destination = platform.savePanel->runModal({
        .title = u"Скачать "_s + entry.name,
        .proposedName = entry.archive,
        .folder = platform.userFolders->downloadsFolder(),
    });
    if (!destination)
        return;

    busy.insert(entry.id);
    platform.jobs->start([store = QPointer(this), entry, place = *destination]() -> Jobs::Task {
        return [store, entry, place, outcome = saveArchive(entry, place)] {
            if (store)
                store->finishSaving(entry, place, outcome);
        };
    });
}

void Store::finishSaving(const StoreApp& app, const Path& destination, const Result<void>& outcome)
{
    if (outcome) {
        saved.insert(app.id);
        Platform::current().workspace->reveal(destination);
        message.set(app.name + u" сохранён. Распакуйте ZIP и перенесите "_s + app.name
            + u".app в папку «Программы». Сборка подписана локально и не прошла нотарификацию Apple; macOS "
              u"может "
              u"запросить разрешение на первый запуск."_s);
    } else {
        message.set(u"Не удалось сохранить "_s + app.name + u": "_s + outcome.error().localizedDescription);
    }
    busy.remove(app.id);
}
