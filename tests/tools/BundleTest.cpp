#include "tools/SampleCollection.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using Sample = SampleCollection;
using testing::HasSubstr;

namespace {

const QString bundling = QStringLiteral(PACK_PROGRAM) + u" bundle "_s;

TEST(Bundle, OpensAndIsTheSameTwice)
{
    const Sample sample;
    sample.write("it's \"1\".sh", "#!/usr/bin/env sh\necho \"$1\"\n");
    for (const auto& [source, output] : {std::pair("it*.sh"_L1, "c  d\n0 errors, 1 warning\n1\n"),
             {"/bin/echo --icon c/Brand.svg"_L1, "c  d\n0 errors, 0 warnings\n1\n"}}) {
        const QString make = bundling + source + u" 'п 1.app' --id org.example.П --version '1 <б>' >log;"_s;
        const QString latin = QString(make).replace(u"П"_s, u"P"_s);
        EXPECT_EQ(
            sample
                .shell(latin
                    + u"'п 1.app/Contents/MacOS/п 1' 'c  d'; tail -n 1 log; rm -rf z; cp -a п* z; umask 077;"_s
                    + latin
                    + u"for i in п* z; do tar -C \"$i\" --sort=name -c . | sha256sum; done | uniq | wc -l"_s)
                .output,
            output);
        EXPECT_EQ(sample.shell(make).status, 2);
    }
    EXPECT_THAT(
        sample.read("п 1.app/Contents/Info.plist").toStdString(), HasSubstr("<string>1 &lt;б&gt;</string>"));
    EXPECT_THAT(sample.read("п 1.app/Contents/Resources/AppIcon.icns").toStdString(), HasSubstr("icns"));
    EXPECT_EQ(sample.tool({u"new"_s, u"n"_s, u"п 1.app"_s}).status, 0);
}

TEST(Bundle, TellsAllThatIsWrongAndLeavesNothingBehind)
{
    const Sample sample;
    sample.write("s.sh", "#!/bin/sh\n");
    sample.write("n.sh", "#!/no/sh\n");
    sample.write("m",
        "\x7f"
        "ELF\2\1");
    for (const auto& [script, told] : {
             std::pair("none x.app"_L1, "none: error: No such file or directory [source-unusable]\n"),
             {"c x.app"_L1, "c: error: it is no file [source-unusable]\n"},
             {"c/Brand.svg x.app"_L1, "it is neither a program nor a script [source-unusable]\n"},
             {"s.sh x.app"_L1, "--id gives it [option-missing]\ns.sh: error: nothing tells its version: --v"},
             {"s.sh x.app --id 'a b' --version 1/2 --icon s.sh"_L1, "3 errors, 0 warnings"},
             {"s.sh program.app --id a --version 1"_L1, "no bundle of \"a\" [target-taken]\n"},
             {"n.sh x.app --id a --version 1"_L1,
                 "runs by \"/no/sh\", which is not here [interpreter-missing]"},
             {"m program.app --id a --version 1 --json"_L1, "\"code\": \"machine-differs\""},
         })
        EXPECT_THAT(sample.shell(bundling + script).output, HasSubstr(told)) << script.latin1();
    EXPECT_EQ(sample.shell(bundling + u"s.sh x --id a --version 1"_s).status, 1);
    EXPECT_EQ(sample.shell(u"ls -A"_s).output, "c\nm\nn.sh\nprogram.app\ns.sh\n");
}

} // namespace
