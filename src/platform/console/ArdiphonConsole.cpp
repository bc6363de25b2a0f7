// ArdiphonConsole DIRECTORY PROGRAM ARGUMENT...
//
// Runs a program in the terminal that it stands in, and keeps the terminal open at the program's
// end until a key is pressed. An empty directory is the current one.

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>

#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

namespace {

enum Argument { Directory = 1, Program };

[[noreturn]] void become(char **command)
{
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGQUIT, SIG_DFL);
    execvp(command[0], command);
    std::fprintf(stderr, "%s: %s\n", command[0], std::strerror(errno));
    _exit(127);
}

void run(char **command)
{
    // Ctrl+C is meant for the program that runs.
    std::signal(SIGINT, SIG_IGN);
    std::signal(SIGQUIT, SIG_IGN);
    const pid_t child = fork();
    if (child == 0)
        become(command);
    if (child < 0)
        std::perror("fork");
    while (child > 0 && waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
    }
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGQUIT, SIG_DFL);
}

/// Keys that were pressed while the program ran do not count.
void waitForKey()
{
    std::printf("\nPress a key to close this window.");
    std::fflush(stdout);
    termios state{};
    if (tcgetattr(STDIN_FILENO, &state) == 0) {
        state.c_lflag &= ~tcflag_t(ICANON | ECHO);
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &state);
    }
    char key = 0;
    (void)!read(STDIN_FILENO, &key, 1);
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc <= Program) {
        std::fprintf(stderr, "usage: ArdiphonConsole DIRECTORY PROGRAM ARGUMENT...\n");
        return 2;
    }
    if (*argv[Directory] && chdir(argv[Directory]) != 0)
        std::perror(argv[Directory]);
    run(argv + Program);
    waitForKey();
    return 0;
}
