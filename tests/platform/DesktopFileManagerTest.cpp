#include "platform/desktop/DesktopFileManager.h"

#include "platform/EnvironmentVariable.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <fstream>

namespace {

/// The user has an empty home folder.
class HomeFolder : public testing::Test {
protected:
    Path home() const { return toPath(m_folder.path()); }

    DesktopFileManager fileManager;

private:
    QTemporaryDir m_folder;
    EnvironmentVariable m_home{"HOME", m_folder.path().toUtf8()};
    EnvironmentVariable m_config{"XDG_CONFIG_HOME", ""};
};

TEST_F(HomeFolder, TheDownloadsFolderIsTheOneTheUserNamed)
{
    std::filesystem::create_directory(home() / ".config");
    std::filesystem::create_directory(home() / "Загрузки");
    std::ofstream(home() / ".config" / "user-dirs.dirs") << "XDG_DOWNLOAD_DIR=\"$HOME/Загрузки\"\n";

    EXPECT_EQ(fileManager.homeFolder(), home());
    EXPECT_EQ(fileManager.downloadsFolder(), home() / "Загрузки");
}

TEST_F(HomeFolder, AMissingDownloadsFolderIsNone)
{
    EXPECT_EQ(fileManager.downloadsFolder(), std::nullopt);
}

} // namespace
