#include "platform/GuardedRun.h"

#include "platform/linux/Guard.h"
#include "platform/linux/InputPipe.h"

#include <QFile>
#include <QPointer>
#include <QSocketNotifier>

#include <cerrno>
#include <utility>

namespace ardiphon {

namespace {

constexpr qsizetype BlockSize = 65536; ///< what a pipe holds
constexpr int MostBlocks = 16;         ///< that a pipe can hold, where a program made it larger

GuardedProgram programOf(const ProgramCommand &command)
{
    GuardedProgram program;
    program.path = QFile::encodeName(command.executable);
    program.arguments.append(program.path);
    for (const QString &argument : command.arguments)
        program.arguments.append(QFile::encodeName(argument));
    program.environment = changedVariables(command.environment);
    program.directory = QFile::encodeName(command.directory);
    return program;
}

} // namespace

struct GuardedRun::Pipes
{
    /// Our end of a pipe into which a program prints.
    struct Output
    {
        Descriptor end;
        std::unique_ptr<QSocketNotifier> news;

        void open(Descriptor ours)
        {
            ours.neverWait();
            end = std::move(ours);
            news = std::make_unique<QSocketNotifier>(end.number(), QSocketNotifier::Read);
        }
        void close()
        {
            news.reset();
            end.close();
        }
        /// Empty when there is nothing to read now, or the pipe has ended.
        QByteArray read()
        {
            QByteArray block(BlockSize, Qt::Uninitialized);
            ssize_t size = 0;
            do
                size = ::read(end.number(), block.data(), size_t(BlockSize));
            while (size < 0 && errno == EINTR);
            if (size == 0 && news)
                news->setEnabled(false);
            block.truncate(size > 0 ? size : 0);
            return block;
        }
    };

    Guard guard;
    std::unique_ptr<QSocketNotifier> news; ///< from the guard
    InputPipe input;
    Output outputs[2]; ///< by channel

    Output &of(OutputChannel channel) { return outputs[int(channel)]; }
};

GuardedRun::GuardedRun(QObject *parent) : QObject(parent), m_pipes(std::make_unique<Pipes>())
{
    connect(&m_pipes->input, &InputPipe::allWritten, this, &GuardedRun::inputWritten);
}

GuardedRun::~GuardedRun() = default;

/// The program's ends of the pipes are closed in this process as soon as the program has them.
bool GuardedRun::start(const ProgramCommand &command, const GuardedStreams &streams)
{
    using Output = GuardedStreams::Output;
    GuardedProgram program = programOf(command);
    Pipe input;
    Pipe output;
    Pipe errors;
    const bool reads = streams.output == Output::Read || streams.output == Output::ReadTogether;
    if ((streams.input && !input.open()) || (reads && !output.open()) ||
        (streams.output == Output::Read && !errors.open()))
        return false;
    program.input = input.read.number();
    if (streams.output == Output::Ours) {
        program.output = STDOUT_FILENO;
        program.errors = STDERR_FILENO;
    } else if (reads) {
        program.output = output.write.number();
        program.errors = (errors.write.isOpen() ? errors : output).write.number();
    }
    if (!m_pipes->guard.start(program))
        return false;
    m_pipes->news =
        std::make_unique<QSocketNotifier>(m_pipes->guard.newsDescriptor(), QSocketNotifier::Read);
    connect(m_pipes->news.get(), &QSocketNotifier::activated, this, &GuardedRun::readNews);
    if (streams.input)
        m_pipes->input.open(std::move(input.write));
    if (reads)
        listen(OutputChannel::Standard, output);
    if (streams.output == Output::Read)
        listen(OutputChannel::Errors, errors);
    return true;
}

void GuardedRun::listen(OutputChannel channel, Pipe &pipe)
{
    m_pipes->of(channel).open(std::move(pipe.read));
    connect(m_pipes->of(channel).news.get(), &QSocketNotifier::activated, this,
            [this, channel] { readOutput(channel); });
}

void GuardedRun::readNews()
{
    const auto news = m_pipes->guard.readNews();
    if (news == Guard::News::Started) {
        reportStarted();
    } else if (news == Guard::News::Failed) {
        m_pipes->news->setEnabled(false);
        stop();
        emit failed();
    } else if (news == Guard::News::End) {
        finish();
    }
}

void GuardedRun::reportStarted()
{
    if (!std::exchange(m_started, true))
        emit started();
}

/// What a program has printed may be readable before the guard reports that it runs.
void GuardedRun::readOutput(OutputChannel channel)
{
    const QPointer<GuardedRun> here(this);
    const QByteArray block = m_pipes->of(channel).read();
    if (block.isEmpty())
        return;
    reportStarted();
    if (here && m_pipes->of(channel).end.isOpen()) // else it was stopped in the meantime
        emit printed(channel, block);
}

/// All is dead, so nothing is added to the pipes any more; only a process that could not be killed
/// might go on printing.
void GuardedRun::finish()
{
    const QPointer<GuardedRun> here(this);
    m_pipes->news->setEnabled(false);
    m_pipes->input.closeNow();
    for (const OutputChannel channel : {OutputChannel::Standard, OutputChannel::Errors}) {
        for (int blocks = 0; here && blocks < MostBlocks; ++blocks) {
            const QByteArray block = m_pipes->of(channel).read();
            if (block.isEmpty())
                break;
            emit printed(channel, block);
        }
        if (!here)
            return;
        m_pipes->of(channel).close();
    }
    emit ended();
}

void GuardedRun::stop()
{
    m_pipes->input.closeNow();
    for (Pipes::Output &pipe : m_pipes->outputs)
        pipe.close();
    m_pipes->guard.release();
}

bool GuardedRun::write(const QByteArray &bytes) { return m_pipes->input.write(bytes); }

void GuardedRun::closeInput() { m_pipes->input.closeWhenWritten(); }

qint64 GuardedRun::unwritten() const { return m_pipes->input.unwritten(); }

} // namespace ardiphon
