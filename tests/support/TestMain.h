#pragma once

#include <QCoreApplication>
#include <QTest>

/// Test classes share a program: what takes time is to build one, not to run it. Each registers
/// itself under its name, and the program runs the one that it is called by (TestMain.cpp).

/// One test class, as a program of its own would run it.
class RegisteredTest
{
public:
    using Run = int (*)(int argc, char **argv);
    RegisteredTest(const char *name, Run run);
};

/// For a test that makes the application itself, or needs none.
struct NoApplication
{
    NoApplication(int &, char **) {}
};

template <typename Test, typename Application>
int runTest(int argc, char **argv)
{
    // Every display has the same resolution, so that fonts and what depends on them do too.
    QCoreApplication::setAttribute(Qt::AA_Use96Dpi);
    [[maybe_unused]] Application application(argc, argv);
    Test test;
    return QTest::qExec(&test, argc, argv);
}

/// ARDIPHON_TEST(tst_Subject, QApplication), or QCoreApplication, or NoApplication: at the end of a
/// test's source.
#define ARDIPHON_TEST(Test, Application)                                                           \
    static const RegisteredTest registered_##Test(#Test, runTest<Test, Application>);
/// The same for a test with more to do before it runs, such as to read arguments of its own.
#define ARDIPHON_TEST_RUN_BY(Test, ...)                                                            \
    static const RegisteredTest registered_##Test(#Test, __VA_ARGS__);
