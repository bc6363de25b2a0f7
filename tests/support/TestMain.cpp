// The main() of the test programs: runs the test class whose name the program was called by.
//
//   build/release/tests/tst_Subject [OPTION...]               a link of that name to the program
//   build/release/tests/window_tests tst_Subject [OPTION...]  the same

#include "support/TestMain.h"

#include <QFileInfo>

#include <cstdio>

namespace {

using Tests = QMap<QByteArray, RegisteredTest::Run>;

Tests &tests()
{
    static Tests all;
    return all;
}

int listTests()
{
    std::puts("Which test? There are:");
    for (auto test = tests().keyBegin(); test != tests().keyEnd(); ++test)
        std::puts(test->constData());
    return 2;
}

} // namespace

RegisteredTest::RegisteredTest(const char *name, Run run)
{
    if (tests().contains(name))
        qFatal("two tests have the name %s", name);
    tests().insert(name, run);
}

int main(int argc, char **argv)
{
    const auto named = [](const char *path) {
        return tests().value(QFileInfo(QFile::decodeName(path)).fileName().toUtf8());
    };
    if (const RegisteredTest::Run run = named(argv[0]))
        return run(argc, argv);
    const RegisteredTest::Run run = argc > 1 ? named(argv[1]) : nullptr;
    return run ? run(argc - 1, argv + 1) : listTests();
}
