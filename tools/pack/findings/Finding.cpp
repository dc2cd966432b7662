#include "pack/findings/Finding.h"

#include <algorithm>
#include <array>

namespace {

struct Description {
    Code code;
    std::string_view text;
    Severity severity;
};

constexpr auto descriptions = std::to_array<Description>({
    {Code::NotJson, "not-json", Severity::Error},
    {Code::NotUtf8, "not-utf8", Severity::Error},
    {Code::KeyMissing, "key-missing", Severity::Error},
    {Code::KeyUnknown, "key-unknown", Severity::Error},
    {Code::KeyType, "key-type", Severity::Error},
    {Code::KeyTwice, "key-twice", Severity::Error},
    {Code::TextControl, "text-control", Severity::Error},
    {Code::TextEmpty, "text-empty", Severity::Warning},
    {Code::TextBidi, "text-bidi", Severity::Warning},
    {Code::IdShared, "id-shared", Severity::Error},
    {Code::NameShared, "name-shared", Severity::Error},
    {Code::BundleIdShared, "bundle-id-shared", Severity::Error},
    {Code::ArchiveShared, "archive-shared", Severity::Error},
    {Code::NameNotFile, "name-not-file", Severity::Error},
    {Code::ArchiveNotZip, "archive-not-zip", Severity::Error},
    {Code::CategoryUnknown, "category-unknown", Severity::Error},
    {Code::MinimumForm, "minimum-form", Severity::Error},
    {Code::FirstNotBrisko, "first-not-brisko", Severity::Warning},
    {Code::CountNotFour, "count-not-four", Severity::Warning},
    {Code::AppMissing, "app-missing", Severity::Error},
    {Code::AppLink, "app-link", Severity::Error},
    {Code::PlistUnreadable, "plist-unreadable", Severity::Error},
    {Code::BundleIdDiffers, "bundle-id-differs", Severity::Error},
    {Code::VersionDiffers, "version-differs", Severity::Error},
    {Code::ExecutableMissing, "executable-missing", Severity::Error},
    {Code::ExecutableMode, "executable-mode", Severity::Error},
    {Code::NotAProgram, "not-a-program", Severity::Error},
    {Code::ArchitectureDiffers, "architecture-differs", Severity::Warning},
    {Code::MinimumDiffers, "minimum-differs", Severity::Warning},
    {Code::LinkOutside, "link-outside", Severity::Error},
    {Code::SpecialFile, "special-file", Severity::Error},
    {Code::NameNotUtf8, "name-not-utf8", Severity::Error},
    {Code::NameControl, "name-control", Severity::Error},
    {Code::NameBackslash, "name-backslash", Severity::Error},
    {Code::NamesDifferByCase, "names-differ-by-case", Severity::Error},
    {Code::Unreadable, "unreadable", Severity::Error},
    {Code::ChangedWhileRead, "changed-while-read", Severity::Error},
    {Code::LinkDangling, "link-dangling", Severity::Warning},
    {Code::SetId, "set-id", Severity::Warning},
    {Code::Litter, "litter", Severity::Warning},
    {Code::PictureMissing, "picture-missing", Severity::Error},
    {Code::PictureUnreadable, "picture-unreadable", Severity::Error},
    {Code::PictureText, "picture-text", Severity::Error},
    {Code::PictureExternal, "picture-external", Severity::Error},
    {Code::PictureBlank, "picture-blank", Severity::Error},
    {Code::PictureNotSquare, "picture-not-square", Severity::Error},
    {Code::PictureSmall, "picture-small", Severity::Warning},
    {Code::ArchiveMissing, "archive-missing", Severity::Error},
    {Code::SizeDiffers, "size-differs", Severity::Error},
    {Code::DigestDiffers, "digest-differs", Severity::Error},
    {Code::ArchiveDamaged, "archive-damaged", Severity::Error},
    {Code::ArchiveShape, "archive-shape", Severity::Error},
    {Code::ArchiveBomb, "archive-bomb", Severity::Error},
    {Code::UnreferencedFile, "unreferenced-file", Severity::Warning},
    {Code::SourceUnusable, "source-unusable", Severity::Error},
    {Code::InterpreterMissing, "interpreter-missing", Severity::Error},
    {Code::MachineDiffers, "machine-differs", Severity::Warning},
    {Code::OptionMissing, "option-missing", Severity::Error},
    {Code::ValueForm, "value-form", Severity::Error},
    {Code::IconMissing, "icon-missing", Severity::Warning},
    {Code::TargetTaken, "target-taken", Severity::Error},
    {Code::Guessed, "guessed", Severity::Note},
});

static_assert(std::ranges::is_sorted(descriptions, {}, &Description::code));
static_assert(descriptions.size() == std::size_t(Code::Guessed) + 1);

} // namespace

std::string_view codeText(Code code)
{
    return descriptions.at(std::size_t(code)).text;
}

Severity severityOf(Code code)
{
    return descriptions.at(std::size_t(code)).severity;
}

bool hasErrors(const Findings& findings)
{
    return std::ranges::any_of(
        findings, [](const Finding& finding) { return severityOf(finding.code) == Severity::Error; });
}
