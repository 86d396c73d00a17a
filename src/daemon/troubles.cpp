#include "daemon/troubles.h"

#include "daemon/supervisor.h"

using namespace Qt::StringLiterals;

void Troubles::Set(Kind kind, const QString &text)
{
    const auto known = texts.find(kind);
    const QString before = known == texts.end() ? QString() : known->second;
    if (before == text) {
        return;
    }
    if (text.isEmpty()) {
        texts.erase(known);
        journal::Info(u"Over: %1"_s.arg(before));
    } else {
        texts[kind] = text;
        journal::Warning(text);
    }
    supervisor::Status(texts.empty() ? u"Counting."_s : Texts().join(u' '));
    emit Changed();
}

QStringList Troubles::Texts() const
{
    QStringList all;
    for (const auto &[kind, text] : texts) {
        all << text;
    }
    return all;
}
