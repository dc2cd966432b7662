#pragma once

#include "platform/BundleLayout.h"
#include "platform/Platform.h"

#include <QByteArray>
#include <QStringList>

#include <deque>
#include <map>

/// A machine in memory, installed as the platform while it lives. Tests put things in and look at what became
/// of them.
class FakePlatform {
public:
    class FakeFiles final : public Files {
    public:
        std::optional<FileStamp> stamp(const Path& file) const override;
        Result<QByteArray> read(const Path& file) const override;
        Result<void> readInBlocks(const Path& file, const Sink& sink) const override;
        Result<void> copy(const Path& source, const Path& destination, const Sink& sink,
            const Verdict& verdict) const override;

        mutable std::map<Path, QByteArray> content;
        /// Error numbers that reading or writing these files ends with.
        std::map<Path, int> readErrors;
        std::map<Path, int> writeErrors;
    };

    class FakeBundles final : public Bundles {
    public:
        Path mainBundle() const override { return "/Store.app"; }
        std::optional<QString> bundleIdentifier(const Path& place) const override;

        std::map<Path, QString> installed;
    };

    class FakeUserFolders final : public UserFolders {
    public:
        Path homeFolder() const override { return "/home/user"; }
        std::optional<Path> downloadsFolder() const override { return downloads; }

        std::optional<Path> downloads = "/home/user/Downloads";
    };

    class FakeWorkspace final : public Workspace {
    public:
        explicit FakeWorkspace(const FakeBundles& bundles) : m_bundles(bundles) { }

        std::optional<Path> urlForApplication(const QString& bundleID) override;
        void openApplication(const Path& place, std::function<void(Result<void>)> done) override;
        void openURL(const QString& address) override { addresses.append(address); }
        void reveal(const Path& file) override { revealed.push_back(file); }

        std::map<QString, Path> registry;
        /// What opening ends with.
        Result<void> outcome;
        std::vector<Path> opened;
        std::vector<Path> revealed;
        QStringList addresses;

    private:
        const FakeBundles& m_bundles;
    };

    class FakeSavePanel final : public SavePanel {
    public:
        std::optional<Path> runModal(const SavePanelSetup& setup) override;

        std::optional<Path> answer;
        /// What happens in its event loop.
        std::function<void()> whileOpen;
        std::vector<SavePanelSetup> shown;
    };

    class FakeJobs final : public Jobs {
    public:
        void start(std::function<Task()> work) override { background.push_back(std::move(work)); }
        void onMainThread(Task task) override { main.push_back(std::move(task)); }
        /// Does all work that waits, in the background first.
        void runAll();

        std::deque<std::function<Task()>> background;
        std::deque<Task> main;
    };

    FakeFiles files;
    FakeBundles bundles;
    FakeUserFolders userFolders;
    FakeWorkspace workspace{bundles};
    FakeSavePanel savePanel;
    FakeJobs jobs;

    /// The place of a file in the main bundle's resource folder.
    Path resource(const Path& name) const { return bundle_layout::resources(bundles.mainBundle()) / name; }

private:
    PlatformScope m_scope{{bundles, files, userFolders, workspace, savePanel, jobs}};
};
