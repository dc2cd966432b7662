#pragma once

#include "store/Store.h"
#include "support/FakePlatform.h"
#include "support/Samples.h"

#include <gmock/gmock.h>

/// A machine with a catalog of Brisko and Kadrilo.
class ModelTest : public testing::Test {
protected:
    /// The store of a bundle with these entries.
    Store& load(const Catalog& apps)
    {
        platform.files.content[platform.resource("catalog.json")] = sample::catalogFile(apps);
        return m_store.emplace();
    }

    FakePlatform platform;
    const StoreApp brisko = sample::brisko();
    const StoreApp kadrilo = sample::kadrilo();

private:
    std::optional<Store> m_store;
};
