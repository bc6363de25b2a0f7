// ArdiphonConsole [--report NAME] [--set NAME=VALUE | --unset NAME]... DIRECTORY PROGRAM
// ARGUMENT...
//
// Runs a program in the terminal that it runs in, and keeps the terminal open at the program's end
// until a key is pressed. An empty directory is the current one. Nothing of the program stays
// behind when the terminal is closed.
//
// With --report the program belongs to the process that listens at the abstract socket of that
// name: that process is informed of the end, and when it closes the connection the program is ended
// and the terminal closes.

#include "platform/linux/ConsoleReport.h"
#include "platform/linux/Descendants.h"

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include <sys/signalfd.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <termios.h>

namespace {

using namespace ardiphon;

enum class Outcome {
    Ended,      ///< it ended by itself; what it has printed is to be read
    NotStarted, ///< a message has said so
    Dismissed   ///< the terminal is closed, or nobody waits for it any more
};

int usage()
{
    std::fprintf(stderr, "usage: ArdiphonConsole [--report NAME] [--set NAME=VALUE | --unset NAME]"
                         "... DIRECTORY PROGRAM ARGUMENT...\n");
    return 2;
}

/// -1 when nobody of this user listens there.
int connectTo(std::string_view name)
{
    const int connection = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un address{};
    const socklen_t size = report::address(name, address);
    if (size == 0 || connect(connection, reinterpret_cast<sockaddr *>(&address), size) != 0 ||
        !report::isOurs(connection))
        return -1;
    return connection;
}

void tell(int connection, report::News news) { (void)!send(connection, &news, 1, MSG_NOSIGNAL); }

/// The program with all that it starts.
class Run
{
public:
    Run(char **command, int connection) : m_command(command), m_connection(connection) {}

    Outcome run()
    {
        descendants::adoptOrphans();
        blockSignals();
        if (!start()) {
            tell(m_connection, report::News::Failed);
            return Outcome::NotStarted;
        }
        pollfd news[] = {{m_signals, POLLIN, 0}, {m_connection, POLLIN, 0}};
        while (m_outcome == Outcome::Ended && hasChildren()) {
            poll(news, 2, -1);
            if (news[1].revents != 0)
                dismiss();
            else if (news[0].revents != 0)
                takeSignal();
        }
        tell(m_connection, report::News::Ended);
        sigprocmask(SIG_SETMASK, &m_before, nullptr);
        return m_outcome;
    }

private:
    void blockSignals()
    {
        sigset_t taken;
        sigemptyset(&taken);
        for (const int number : {SIGCHLD, SIGINT, SIGQUIT, SIGHUP, SIGTERM})
            sigaddset(&taken, number);
        sigprocmask(SIG_BLOCK, &taken, &m_before);
        std::signal(SIGCHLD, SIG_DFL);
        m_signals = signalfd(-1, &taken, SFD_CLOEXEC);
    }

    /// The pipe closes when the program takes the place of the new process, and only then.
    bool start()
    {
        int failure[2];
        if (pipe2(failure, O_CLOEXEC) != 0)
            return false;
        const pid_t console = getpid();
        m_program = fork();
        if (m_program == 0) {
            prctl(PR_SET_PDEATHSIG, SIGKILL);
            if (getppid() == console)
                become();
            (void)!write(failure[1], "", 1);
            _exit(127);
        }
        close(failure[1]);
        char none;
        const bool started = m_program > 0 && read(failure[0], &none, 1) == 0;
        close(failure[0]);
        return started;
    }

    void become()
    {
        sigprocmask(SIG_SETMASK, &m_before, nullptr);
        if (std::strchr(m_command[0], '/'))
            execv(m_command[0], m_command); // execvp would try a shell
        else
            execvp(m_command[0], m_command);
        std::fprintf(stderr, "%s: %s\n", m_command[0], std::strerror(errno));
    }

    /// Collects ended processes. What the program leaves running goes on where nobody waits for the
    /// program's end, but may be ended like the program.
    bool hasChildren()
    {
        pid_t dead = 0;
        while ((dead = waitpid(-1, nullptr, WNOHANG)) > 0) {
            if (dead != m_program)
                continue;
            m_program = 0;
            if (m_connection >= 0)
                descendants::endAll();
        }
        const bool some = dead == 0;
        if (some && m_program == 0 && !m_leftToldOf) {
            m_leftToldOf = true;
            std::printf("\nWhat it has started still runs; Ctrl+C ends that.\n");
            std::fflush(stdout);
        }
        return some;
    }

    void takeSignal()
    {
        signalfd_siginfo received{};
        if (read(m_signals, &received, sizeof received) != sizeof received)
            return;
        if (received.ssi_signo == SIGHUP || received.ssi_signo == SIGTERM)
            dismiss();
        else if (received.ssi_signo != SIGCHLD && m_program == 0) // else the program gets the key
            descendants::endAll();
    }

    void dismiss()
    {
        m_outcome = Outcome::Dismissed;
        descendants::endAll();
    }

    char **const m_command;
    const int m_connection; ///< -1 when nobody waits for a report
    int m_signals = -1;
    sigset_t m_before{};
    pid_t m_program = -1;
    bool m_leftToldOf = false;
    Outcome m_outcome = Outcome::Ended;
};

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

void changeEnvironment(const char *option, char *value)
{
    char *const end = std::strchr(value, '=');
    if (std::strcmp(option, "--unset") == 0) {
        unsetenv(value);
    } else if (end) {
        *end = '\0';
        setenv(value, end + 1, 1);
    }
}

} // namespace

int main(int argc, char *argv[])
{
    constexpr int leastArguments = 2;
    int connection = -1;
    char **rest = argv + 1;
    for (; rest - argv + 1 < argc && std::strncmp(*rest, "--", 2) == 0; rest += 2) {
        if (std::strcmp(*rest, "--report") != 0)
            changeEnvironment(rest[0], rest[1]);
        else if ((connection = connectTo(rest[1])) < 0)
            return 1; // it has ended, or has given up
    }
    if (argc - (rest - argv) < leastArguments)
        return usage();
    if (**rest && chdir(*rest) != 0)
        std::perror(*rest);
    if (isatty(STDOUT_FILENO)) {
        std::printf("Ctrl+C stops the program; closing this window ends it.\n\n");
        std::fflush(stdout);
    }
    const Outcome outcome = Run(rest + 1, connection).run();
    if (connection >= 0)
        close(connection);
    if (outcome == Outcome::Ended || (outcome == Outcome::NotStarted && connection < 0))
        waitForKey();
    return 0;
}
