#include "hardening/ProcessWatch.h"

#include <QDir>
#include <QFile>

#include <csignal>
#include <cstdlib>
#include <malloc.h>
#include <unistd.h>

#if defined(__SANITIZE_ADDRESS__)
extern "C" size_t __sanitizer_get_current_allocated_bytes(); // not every compiler has its header
#endif

namespace {

extern "C" void reportHang(int)
{
    constexpr char message[] = "soak: HANG - the program does not come back\n";
    (void)!::write(STDERR_FILENO, message, sizeof message - 1);
    std::abort();
}

} // namespace

namespace ProcessWatch {

int openHandles()
{
    return int(QDir(QStringLiteral("/proc/self/fd"))
                   .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
                   .size());
}

QStringList children()
{
    QStringList names;
    const QDir tasks(QStringLiteral("/proc/self/task"));
    for (const QString &task : tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QFile list(tasks.filePath(task + QStringLiteral("/children")));
        if (!list.open(QIODevice::ReadOnly))
            continue;
        for (const QByteArray &pid : list.readAll().simplified().split(' ')) {
            QFile name(QStringLiteral("/proc/%1/comm").arg(QString::fromLatin1(pid)));
            if (!pid.isEmpty() && name.open(QIODevice::ReadOnly))
                names.append(QString::fromUtf8(name.readAll().trimmed()));
        }
    }
    return names;
}

qint64 liveBytes()
{
#if defined(__SANITIZE_ADDRESS__)
    return qint64(__sanitizer_get_current_allocated_bytes());
#else
    const auto info = ::mallinfo2();
    return qint64(info.uordblks + info.hblkhd);
#endif
}

void expectLifeWithin(unsigned seconds)
{
    std::signal(SIGALRM, reportHang);
    ::alarm(seconds);
}

} // namespace ProcessWatch
