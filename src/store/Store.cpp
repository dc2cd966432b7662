#include "store/Store.h"

#include "platform/Platform.h"
#include "store/ArchiveJob.h"

#include <QPointer>

#include <unordered_set>

using namespace Qt::StringLiterals;

namespace {

std::vector<SearchText> foldedTexts(const Catalog& apps, LetterCase letterCase)
{
    std::vector<SearchText> texts;
    texts.reserve(apps.size());
    for (const StoreApp& app : apps)
        texts.emplace_back(app.searchText(), letterCase);
    return texts;
}

} // namespace

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
    if (m_comingSearchTexts.valid())
        m_searchTexts = m_comingSearchTexts.get();
    else if (m_searchTexts.empty())
        m_searchTexts = foldedTexts(*apps, userLetterCase());
    return m_searchTexts;
}

void Store::prepareSearch()
{
    if (m_searchTexts.empty() && !m_comingSearchTexts.valid())
        m_comingSearchTexts = std::async(
            std::launch::async | std::launch::deferred, foldedTexts, std::cref(*apps), userLetterCase());
}

const TextSet& Store::repeatedIds() const
{
    if (!m_repeatedIds) {
        m_repeatedIds.emplace();
        std::unordered_set<QStringView, decltype(&canonicalHash), decltype(&canonicallyEqual)> seen(
            apps->size(), canonicalHash, canonicallyEqual);
        for (const StoreApp& app : *apps) {
            if (!seen.insert(app.id).second)
                m_repeatedIds->insert(app.id);
        }
    }
    return *m_repeatedIds;
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
    platform.workspace->openApplication(
        *place, [store = QPointer(this), name = app.name, jobs = platform.jobs](const Result<void>& outcome) {
            jobs->onMainThread([store, name, outcome] {
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
    const auto destination = platform.savePanel->runModal({
        .title = u"Скачать "_s + app.name,
        .proposedName = app.archive,
        .folder = platform.userFolders->downloadsFolder(),
    });
    // The panel's event loop may have started another save of this entry.
    if (!destination || busy->contains(app.id))
        return;

    busy.insert(app.id);
    platform.jobs->start(
        [store = QPointer(this), app = std::move(app), place = *destination]() -> Jobs::Task {
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
        Platform::current().workspace->reveal(destination);
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
