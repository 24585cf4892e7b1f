// SPDX-License-Identifier: MIT
// The toolkit's own texts in Japanese: the file dialog, the menu of a text box.
#pragma once

class QCoreApplication;
class QTranslator;

namespace quillon {

// Installs the toolkit's translation, which the application then owns. Returns nullptr if the
// machine doesn't have it. The toolkit's texts are then in English.
QTranslator* install_japanese(QCoreApplication& application);

}  // namespace quillon
