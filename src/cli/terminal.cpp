#include "cli/terminal.h"

#include "cli/plain_text.h"

#include <array>
#include <csignal>
#include <termios.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

// Without its line end; nothing where the input has ended.
std::optional<QString> LineOf(std::FILE *input)
{
    QByteArray line;
    int byte = std::fgetc(input);
    if (byte == EOF) {
        return std::nullopt;
    }
    for (; byte != EOF && byte != '\n'; byte = std::fgetc(input)) {
        line.append(static_cast<char>(byte));
    }
    return QString::fromUtf8(line);
}

constexpr std::array kEnds {SIGINT, SIGTERM, SIGHUP, SIGQUIT};
volatile std::sig_atomic_t ending = 0; // the signal that came while nothing was shown

// What is typed is not shown for as long as this lives. A signal that ends the program ends the reading,
// and the program once all is shown again.
class HiddenTyping
{
public:
    explicit HiddenTyping(std::FILE *input) : descriptor(fileno(input))
    {
        struct sigaction keep
        { };
        keep.sa_handler = [](int signal) { ending = signal; };
        for (size_t i = 0; i < kEnds.size(); ++i) {
            sigaction(kEnds.at(i), &keep, &former.at(i));
        }
        isHidden = tcgetattr(descriptor, &before) == 0;
        if (isHidden) {
            termios hidden = before;
            hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO);
            tcsetattr(descriptor, TCSAFLUSH, &hidden);
        }
    }
    ~HiddenTyping()
    {
        if (isHidden) {
            tcsetattr(descriptor, TCSAFLUSH, &before);
        }
        for (size_t i = 0; i < kEnds.size(); ++i) {
            sigaction(kEnds.at(i), &former.at(i), nullptr);
        }
        if (ending != 0) {
            std::raise(ending);
        }
    }
    HiddenTyping(const HiddenTyping &) = delete;
    HiddenTyping &operator=(const HiddenTyping &) = delete;

private:
    int descriptor;
    bool isHidden = false;
    termios before {};
    std::array<struct sigaction, kEnds.size()> former {};
};

} // namespace

Terminal::Terminal(std::FILE *in, std::FILE *out, std::FILE *err)
    : input(in)
    , output(out)
    , messages(err)
{ }

bool Terminal::IsTyped() const
{
    return isatty(fileno(input)) == 1;
}

bool Terminal::Write(std::FILE *stream, const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    const auto size = static_cast<std::size_t>(bytes.size());
    return std::fwrite(bytes.constData(), 1, size, stream) == size;
}

void Terminal::Print(const QString &text)
{
    isWritten = Write(output, text) && isWritten;
}

bool Terminal::Flush()
{
    return std::fflush(output) == 0 && isWritten;
}

void Terminal::Tell(const QString &text, Icon /*icon*/, const QString & /*caption*/)
{
    Write(messages, u"tollbrook: "_s + PlainText(text, true) + u'\n');
}

bool Terminal::Ask(const QString &text, const QString & /*caption*/)
{
    return AskFor(text);
}

bool Terminal::AskToDestroy(const QString &text, const QString &goes)
{
    return AskFor(goes.isEmpty() ? text : text + u'\n' + goes);
}

bool Terminal::AskFor(const QString &question)
{
    if (answering.isTrial) {
        Tell(u"This would be asked: %1"_s.arg(question));
        return true;
    }
    if (answering.isYes) {
        return true;
    }
    if (!IsTyped()) {
        Tell(
            u"%1\nThere is no terminal to answer on. Repeat the command with --yes to go on."_s.arg(
                question));
        isUnanswered = true;
        return false;
    }
    Write(messages, PlainText(question, true) + u" [y/N] "_s);
    std::fflush(messages);
    const QString answer = LineOf(input).value_or(QString()).trimmed().toLower();
    return answer == u"y"_s || answer == u"yes"_s;
}

std::optional<QString> Terminal::ReadSecret(const QString &label)
{
    if (!IsTyped()) {
        return LineOf(input);
    }
    const HiddenTyping hidden(input);
    Write(messages, label + u' ');
    std::fflush(messages);
    const auto line = LineOf(input);
    Write(messages, u"\n"_s);
    return line;
}

std::optional<QString> Terminal::ReadSecretAgain(const QString &label)
{
    return IsTyped() ? ReadSecret(label) : std::nullopt;
}
