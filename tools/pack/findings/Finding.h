#pragma once

#include <QString>

#include <string_view>
#include <vector>

/// A note tells what is as it should be.
enum class Severity { Error, Warning, Note };

/// Everything that can be wrong with a collection or a store. Their texts are promised to scripts.
enum class Code {
    NotJson,
    NotUtf8,
    KeyMissing,
    KeyUnknown,
    KeyType,
    KeyTwice,
    TextControl,
    TextEmpty,
    TextBidi,
    IdShared,
    NameShared,
    BundleIdShared,
    ArchiveShared,
    NameNotFile,
    ArchiveNotZip,
    CategoryUnknown,
    MinimumForm,
    FirstNotBrisko,
    CountNotFour,
    AppMissing,
    AppLink,
    PlistUnreadable,
    BundleIdDiffers,
    VersionDiffers,
    ExecutableMissing,
    ExecutableMode,
    NotAProgram,
    ArchitectureDiffers,
    MinimumDiffers,
    LinkOutside,
    SpecialFile,
    NameNotUtf8,
    NameControl,
    NameBackslash,
    NamesDifferByCase,
    Unreadable,
    ChangedWhileRead,
    LinkDangling,
    SetId,
    Litter,
    PictureMissing,
    PictureUnreadable,
    PictureText,
    PictureExternal,
    PictureBlank,
    PictureNotSquare,
    PictureSmall,
    ArchiveMissing,
    SizeDiffers,
    DigestDiffers,
    ArchiveDamaged,
    ArchiveShape,
    ArchiveBomb,
    UnreferencedFile,
    SourceUnusable,
    InterpreterMissing,
    MachineDiffers,
    OptionMissing,
    ValueForm,
    IconMissing,
    TargetTaken,
    Guessed,
};

/// How a code is spelled.
std::string_view codeText(Code code);
Severity severityOf(Code code);

/// Where something was found.
struct Place {
    /// As a path in the collection or the store.
    QString file{};
    /// Counted from 1; 0 for none.
    int line = 0;
    /// The name of the entry; null when it is about none.
    QString entry{};
};

/// One thing that is wrong.
struct Finding {
    Code code;
    Place place;
    /// One line in English.
    QString message;
    /// What should stand there, and what does; null when that cannot be said.
    QString expected{};
    QString found{};
};

using Findings = std::vector<Finding>;

/// Whether one of them is an error and not only a warning.
bool hasErrors(const Findings& findings);
