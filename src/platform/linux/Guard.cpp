#include "platform/linux/Guard.h"

#include "platform/linux/Descendants.h"

#include <climits>
#include <sys/signalfd.h>
#include <utility>
#include <vector>

namespace ardiphon {

namespace {

/// A program as the system call takes it, made before there is a process for it.
class Command
{
public:
    explicit Command(const GuardedProgram &program)
        : m_program(program),
          m_arguments(pointers(program.arguments)),
          m_environment(pointers(program.environment))
    {
    }

    /// Returns only when the program cannot be started.
    void become() const
    {
        const int nothing = ::open("/dev/null", O_RDWR | O_CLOEXEC);
        int streams[] = {m_program.input, m_program.output, m_program.errors};
        for (int &stream : streams) // so that they do not overwrite each other
            stream = ::fcntl(stream < 0 ? nothing : stream, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
        for (int number = STDIN_FILENO; number <= STDERR_FILENO; ++number)
            ::dup2(streams[number], number);
        std::signal(SIGPIPE, SIG_DFL);
        if (m_program.directory.isEmpty() || ::chdir(m_program.directory.constData()) == 0)
            ::execve(m_program.path.constData(), m_arguments.data(), m_environment.data());
    }

private:
    static std::vector<char *> pointers(const QByteArrayList &texts)
    {
        std::vector<char *> all;
        for (const QByteArray &text : texts)
            all.push_back(const_cast<char *>(text.constData()));
        all.push_back(nullptr);
        return all;
    }

    const GuardedProgram &m_program;
    const std::vector<char *> m_arguments;
    const std::vector<char *> m_environment;
};

/// The guard's own process. Only system calls are made in it: it has only one of the threads that
/// there were when it was made.
class GuardProcess
{
public:
    GuardProcess(const Command &command, int life, int news)
        : m_command(command), m_life(life), m_news(news)
    {
    }

    [[noreturn]] void run()
    {
        ::setpgid(0, 0);                       // signals to our group are not meant for it
        ::prctl(PR_SET_NAME, "ArdiphonGuard"); // nor is a "killall" of our name
        descendants::adoptOrphans();
        sigset_t all;
        ::sigfillset(&all);
        ::sigprocmask(SIG_BLOCK, &all, &m_signals);
        std::signal(SIGCHLD, SIG_DFL); // else the system might collect ended processes by itself
        if (startProgram()) {
            tell(Guard::News::Started);
            watch();
        } else {
            tell(Guard::News::Failed);
        }
        if (m_program > 0)
            ::kill(-m_program, SIGKILL);
        descendants::endAll();
        ::_exit(0);
    }

private:
    /// The pipe closes when the program takes the place of the new process, and only then.
    bool startProgram()
    {
        Pipe failure;
        if (!failure.open())
            return false;
        const pid_t guard = ::getpid();
        m_program = ::_Fork();
        if (m_program == 0) {
            ::setpgid(0, 0);
            ::prctl(PR_SET_PDEATHSIG, SIGKILL); // in case somebody kills the guard
            if (::getppid() == guard) {         // it was not killed before the line above
                ::sigprocmask(SIG_SETMASK, &m_signals, nullptr);
                m_command.become();
            }
            (void)!::write(failure.write.number(), "", 1);
            ::_exit(1);
        }
        failure.write.close();
        char none;
        return m_program > 0 && ::read(failure.read.number(), &none, 1) == 0;
    }

    void tell(Guard::News news) const { (void)!::write(m_news, &news, 1); }

    /// Waits until the program is dead or the other end of the pipe is closed.
    void watch() const
    {
        keepOnlyPipes();
        sigset_t child;
        ::sigemptyset(&child);
        ::sigaddset(&child, SIGCHLD);
        pollfd news[] = {{STDIN_FILENO, 0, 0}, {::signalfd(-1, &child, SFD_NONBLOCK), POLLIN, 0}};
        while (news[0].revents == 0 && !isDead(m_program)) {
            ::poll(news, 2, -1);
            signalfd_siginfo told;
            (void)!::read(news[1].fd, &told, sizeof told);
        }
    }

    /// Standard input and output become the two pipes, and nothing else stays open.
    void keepOnlyPipes() const
    {
        constexpr int usualLimit = 1024;
        const int life = ::fcntl(m_life, F_DUPFD, STDERR_FILENO + 1);
        const int news = ::fcntl(m_news, F_DUPFD, STDERR_FILENO + 1);
        ::dup2(life, STDIN_FILENO);
        ::dup2(news, STDOUT_FILENO);
        if (::close_range(STDERR_FILENO, UINT_MAX, 0) == 0)
            return;
        for (int other = STDERR_FILENO; other < usualLimit; ++other)
            ::close(other);
    }

    /// Whether the program is dead. It is not collected yet, so it keeps its number and that of its
    /// group.
    static bool isDead(pid_t program)
    {
        siginfo_t info{};
        const int failed =
            ::waitid(P_PID, static_cast<id_t>(program), &info, WEXITED | WNOHANG | WNOWAIT);
        return failed != 0 || info.si_pid == program;
    }

    const Command &m_command;
    const int m_life;
    const int m_news;
    sigset_t m_signals{}; ///< those that were blocked before
    pid_t m_program = -1;
};

} // namespace

bool Guard::start(const GuardedProgram &program)
{
    const Command command(program);
    Pipe life;
    Pipe news;
    pid_t between = -1;
    if (life.open() && news.open()) {
        // The guard is made by a process that ends at once, so nobody here has to collect it.
        between = ::_Fork();
        if (between == 0) {
            ::close(life.write.number());
            const pid_t guard = ::_Fork();
            if (guard == 0)
                GuardProcess(command, life.read.number(), news.write.number()).run();
            ::_exit(guard > 0 ? 0 : 1);
        }
    }
    life.read.close();
    news.write.close();
    news.read.neverWait();
    m_life = std::move(life.write);
    m_news = std::move(news.read);
    int status = 1;
    while (between > 0 && ::waitpid(between, &status, 0) < 0 && errno == EINTR) {
    }
    return status == 0;
}

void Guard::release() { m_life.close(); }

std::optional<Guard::News> Guard::readNews() const
{
    char news = 0;
    const ssize_t size = ::read(m_news.number(), &news, 1);
    if (size == 0)
        return News::End;
    return size > 0 ? std::optional(News(news)) : std::nullopt;
}

} // namespace ardiphon
