#pragma once

#include "platform/Path.h"

#include <QByteArray>
#include <QTemporaryDir>

/// A catalog file of so many entries, each of about the size of a real one.
QByteArray sampleCatalog(int entries);

/// A bundle of the store in a temporary folder. Its entries have the icons that lie in another folder.
class SampleBundle {
public:
    SampleBundle(int entries, const Path& iconFolder);

    /// Where the program of the bundle would lie.
    Path executable() const { return m_contents / "MacOS" / "PloviStore"; }

private:
    QTemporaryDir m_folder;
    Path m_contents;
};
