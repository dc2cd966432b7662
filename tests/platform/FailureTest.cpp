#include "platform/Failure.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <set>

namespace {

TEST(SystemFailure, EachKindHasASentenceOfItsOwn)
{
    std::set<QString> sentences;

    for (const int kind : {ENOENT, EACCES, EROFS, EISDIR, ENAMETOOLONG, ELOOP, ENOSPC, EFBIG, EIO, ENOMEM,
             EMFILE, EBUSY, EOPNOTSUPP, ENOEXEC, ENOTTY, ESRCH}) {
        SCOPED_TRACE(kind);
        const Failure failure = systemFailure(kind);

        EXPECT_EQ(failure.domain, systemDomain);
        EXPECT_EQ(failure.code, kind);
        EXPECT_TRUE(failure.localizedDescription.endsWith(u'.'));
        EXPECT_TRUE(sentences.insert(failure.localizedDescription).second);
    }
}

TEST(SystemFailure, KindsThatMeanTheSameToTheUserShareASentence)
{
    for (const auto& [first, second] : {std::pair{ENOENT, ENOTDIR}, {EACCES, EPERM}, {ENOSPC, EDQUOT}})
        EXPECT_EQ(systemFailure(first).localizedDescription, systemFailure(second).localizedDescription);
}

TEST(SystemFailure, AnUnusualOneNamesTheSystemsNumber)
{
    EXPECT_TRUE(systemFailure(ENOTTY).localizedDescription.contains(QString::number(ENOTTY)));
}

} // namespace
