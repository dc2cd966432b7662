// Any bytes as a maker's collection or a store's catalog. What is found stands in a line of the file, and
// where the packer finds no error the store reads the same entries.
#include "catalog/Catalog.h"
#include "pack/checks/CatalogText.h"

#include <algorithm>
#include <cstdlib>

using namespace Qt::StringLiterals;

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const QByteArray json(reinterpret_cast<const char*>(data), qsizetype(size));
    const auto lines = json.count('\n') + 1;
    for (const CatalogKind kind : {CatalogKind::Collection, CatalogKind::Store}) {
        Findings findings;
        const auto entries = readEntries(json, u"file"_s, kind, findings);
        if (std::ranges::any_of(findings, [&](const Finding& finding) { return finding.place.line > lines; }))
            std::abort();
        if (kind == CatalogKind::Collection || hasErrors(findings))
            continue;
        const auto catalog = decodeCatalog(std::as_bytes(std::span(json)));
        if (!catalog || !std::ranges::equal(*catalog, entries, {}, {}, &EntryText::app))
            std::abort();
    }
    return 0;
}
