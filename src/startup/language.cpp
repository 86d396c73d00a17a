#include "startup/language.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

void Install(const QString &name, const QString &folder)
{
    auto translator = std::make_unique<QTranslator>();
    if (translator->load(QLocale(), name, u"_"_s, folder)) {
        QCoreApplication::installTranslator(translator.get());
        translator.release()->setParent(QCoreApplication::instance());
    }
}

} // namespace

void SpeakTheSystemsLanguage()
{
    const QDir programs(QCoreApplication::applicationDirPath());
    Install(u"qtbase"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    Install(u"tollbrook"_s, programs.filePath(u"../share/tollbrook/translations"_s));
}
