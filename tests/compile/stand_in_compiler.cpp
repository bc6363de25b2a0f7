// Plays a compiler. It is called as one is, `stand_in_compiler <piece> ... -O<log>`, and
// the base name of the piece, an orchestra or else the first argument, chooses how it behaves. It
// leaves its process id, and on the next line that of the process it has started, in a file named
// after the piece with ".pid" behind it.

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <string>
#include <string_view>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

std::string piece;
std::string logFile;
std::vector<std::string> arguments;

void leavePids(pid_t started = 0)
{
    const std::string name = piece + ".pid";
    std::ofstream(name + "~") << getpid() << '\n' << started << '\n';
    std::rename((name + "~").c_str(), name.c_str());
}

void writeLog(std::string_view text)
{
    std::ofstream(logFile, std::ios::binary | std::ios::app) << text;
}

[[noreturn]] void sleepForever()
{
    for (;;)
        pause();
}

pid_t startChild()
{
    const pid_t child = fork();
    if (child == 0)
        sleepForever();
    return child;
}

void logged()
{
    writeLog("this is the log\n");
    leavePids();
}

void slow()
{
    logged();
    sleepForever();
}

void flood()
{
    leavePids();
    std::string line;
    std::ofstream log(logFile, std::ios::binary);
    for (int i = 1; i <= 200'000; ++i) {
        line = "line " + std::to_string(i) + " of a compiler that has a great deal to say\n";
        log << line;
        std::fputs(line.c_str(), stdout);
    }
}

/// 500 MB, with an error at the very beginning.
void deluge()
{
    leavePids();
    std::ofstream log(logFile, std::ios::binary);
    log << "\nerror: on line 3\n";
    const std::string line = std::string(99, 'x') + '\n';
    std::string block;
    for (int i = 0; i < 10'000; ++i)
        block += line;
    for (int i = 0; i < 500; ++i)
        log << block;
}

void errors()
{
    writeLog("\nerror: syntax error, line 2\n");
    leavePids();
}

void scored()
{
    writeLog("\nsread: illegal opcode & line 2\n");
    leavePids();
}

/// The way in which today's compilers name a line.
void links()
{
    const std::string score = piece.substr(0, piece.size() - 3) + "sco";
    writeLog("\nerror: syntax error\n from file " + piece + " (1), line 2:\n >>> two\nin line 1\n" +
             " from file " + score + " (1)\n");
    leavePids();
}

void ignores()
{
    for (const int number : {SIGTERM, SIGINT, SIGHUP, SIGQUIT})
        std::signal(number, SIG_IGN);
    slow();
}

void forks()
{
    writeLog("this is the log\n");
    leavePids(startChild());
    sleepForever();
}

void leaves()
{
    writeLog("this is the log\n");
    leavePids(startChild());
}

void crashes()
{
    logged();
    const rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none);
    std::raise(SIGSEGV);
}

void deletes()
{
    logged();
    unlink(logFile.c_str());
}

/// Makes its log again as soon as somebody has deleted it.
void stubborn()
{
    logged();
    for (;;) {
        if (access(logFile.c_str(), F_OK) != 0)
            writeLog("here again\n");
        usleep(200);
    }
}

void escapes()
{
    using namespace std::string_view_literals;
    writeLog("\x1b[31mred\x1b[0m and \0nothing\r\nnext\n"sv);
    leavePids();
}

/// Waits for all of its children.
void waits()
{
    const pid_t child = fork();
    if (child == 0)
        std::_Exit(0);
    while (wait(nullptr) > 0) {
    }
    writeLog("no child is left\n");
    leavePids();
}

void fails()
{
    logged();
    std::exit(3);
}

std::string target(const char *link)
{
    char path[4096];
    const ssize_t length = readlink(link, path, sizeof path);
    return {path, std::size_t(length < 0 ? 0 : length)};
}

void lists()
{
    std::string text;
    for (const std::string &argument : arguments)
        text += "argument " + argument + '\n';
    for (const char *name : {"SFDIR", "LC_MESSAGES", "LC_ALL", "LANG"})
        if (const char *value = std::getenv(name))
            text += std::string(name) + '=' + value + '\n';
    text += "directory " + target("/proc/self/cwd") + '\n';
    text += "output " + target("/proc/self/fd/1") + '\n';
    text += getpgrp() == getpid() ? "leads its group\n" : "in another's group\n";
    writeLog(text);
    leavePids();
}

void quiet() { leavePids(); }

const std::map<std::string, void (*)()> behaviours{
    {"quiet", quiet},     {"logged", logged},     {"slow", slow},       {"flood", flood},
    {"deluge", deluge},   {"errors", errors},     {"scored", scored},   {"links", links},
    {"ignores", ignores}, {"forks", forks},       {"leaves", leaves},   {"crashes", crashes},
    {"deletes", deletes}, {"stubborn", stubborn}, {"escapes", escapes}, {"fails", fails},
    {"waits", waits},
};

} // namespace

int main(int count, char **values)
{
    arguments.assign(values + 1, values + count);
    if (arguments.empty())
        return 2;
    piece = arguments.front();
    for (const std::string &argument : arguments) {
        if (argument.starts_with("-O"))
            logFile = argument.substr(2);
        if (argument.ends_with(".orc"))
            piece = argument;
    }
    if (logFile.empty()) // as Winsound and CSoundAV are called
        logFile = piece + ".log";
    const auto name = piece.substr(piece.rfind('/') + 1);
    const auto behaviour = behaviours.find(name.substr(0, name.rfind('.')));
    if (behaviour == behaviours.end())
        lists(); // whatever the piece is called
    else
        behaviour->second();
    return 0;
}
