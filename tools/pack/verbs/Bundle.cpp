#include "pack/bundles/Bundle.h"

#include "pack/checks/Application.h"
#include "pack/files/FileAccess.h"
#include "pack/files/Staging.h"
#include "pack/trees/FolderReading.h"
#include "pack/verbs/Verbs.h"
#include "platform/BundleLayout.h"

#include <algorithm>

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

namespace {

/// Only a bundle of the same application is ever replaced.
void checkTarget(const Path& bundle, const QString& identifier, Findings& findings)
{
    std::error_code error;
    const auto type = fs::symlink_status(bundle, error).type();
    if (type == fs::file_type::not_found)
        return;
    Findings ignored;
    const auto info =
        type == fs::file_type::directory ? readInfo(readTree(bundle, {}, ignored)) : std::nullopt;
    if (!info || info->identifier != identifier)
        findings.push_back({.code = Code::TargetTaken,
            .place = {.file = toText(bundle)},
            .message = u"it is there already, and no bundle of \"%1\""_s.arg(identifier),
            .expected = identifier,
            .found = info ? info->identifier : QString()});
}

} // namespace

Result<int> makeBundle(const SourceOrder& order, const Path& bundle, Format format)
{
    const Path target = bundle.has_filename() ? bundle : bundle.parent_path();
    const QString name = toText(target.filename());
    if (target.extension() != bundle_layout::ending || std::ranges::any_of(name, [](QChar character) {
            return character.category() == QChar::Other_Control || character == u'\\';
        }))
        return cannot(
            "write"_L1, target, u"the name of a bundle ends with .app, and all of it can be shown"_s);
    auto staging = Staging::beside(target);
    if (!staging)
        return tl::unexpected(staging.error());
    Findings findings;
    const Source source = readSource(order, findings);
    if (!hasErrors(findings))
        checkTarget(target, source.identifier, findings);
    if (!hasErrors(findings)) {
        const auto done =
            writeBundle(source, (*staging)->place()).and_then([&] { return (*staging)->publish(); });
        if (!done)
            return tl::unexpected(done.error());
    }
    return report(order.source, findings, {}, {.format = format});
}
