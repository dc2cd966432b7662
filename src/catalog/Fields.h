#pragma once

#include "catalog/CodingKeys.h"
#include "catalog/StoreApp.h"

/// Calls `visit(key, member)` for each field of an entry in the order of the keys; `app.*member` is the
/// field. Whatever is done to every field is done through here.
template <class Visitor>
constexpr void forEachField(Visitor visit)
{
    visit(CodingKeys::id, &StoreApp::id);
    visit(CodingKeys::name, &StoreApp::name);
    visit(CodingKeys::category, &StoreApp::category);
    visit(CodingKeys::subtitle, &StoreApp::subtitle);
    visit(CodingKeys::headline, &StoreApp::headline);
    visit(CodingKeys::description, &StoreApp::description);
    visit(CodingKeys::tint, &StoreApp::tint);
    visit(CodingKeys::version, &StoreApp::version);
    visit(CodingKeys::bundleID, &StoreApp::bundleID);
    visit(CodingKeys::minimum, &StoreApp::minimum);
    visit(CodingKeys::archive, &StoreApp::archive);
    visit(CodingKeys::sha256, &StoreApp::sha256);
    visit(CodingKeys::architecture, &StoreApp::architecture);
    visit(CodingKeys::features, &StoreApp::features);
    visit(CodingKeys::bytes, &StoreApp::bytes);
}

namespace fields_check {

template <class Value>
constexpr std::size_t sizeOf(Value StoreApp::*)
{
    return sizeof(Value);
}

constexpr bool visitsEveryKeyInOrder()
{
    std::size_t visited = 0;
    bool inOrder = true;
    forEachField(
        [&](CodingKeys key, auto) { inOrder = inOrder && key == static_cast<CodingKeys>(visited++); });
    return inOrder && visited == codingKeyTexts.size();
}

constexpr std::size_t sizeOfVisitedFields()
{
    std::size_t size = 0;
    forEachField([&](CodingKeys, auto member) { size += sizeOf(member); });
    return size;
}

static_assert(visitsEveryKeyInOrder(), "a key is missing from forEachField() or from codingKeyTexts");
static_assert(sizeOfVisitedFields() == sizeof(StoreApp), "a field is missing from forEachField()");

} // namespace fields_check
