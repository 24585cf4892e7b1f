// SPDX-License-Identifier: MIT
#include "forms/japanese.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>
#include <memory>

namespace quillon {

QTranslator* install_japanese(QCoreApplication& application) {
    auto japanese = std::make_unique<QTranslator>();
    if (!japanese->load("qtbase_ja", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        return nullptr;
    QCoreApplication::installTranslator(japanese.get());
    japanese->setParent(&application);
    return japanese.release();
}

}  // namespace quillon
