#include "sparlow/platform/qt/QtMessageBox.h"

#include <QMessageBox>

#include "sparlow/platform/base/Text.h"
#include "sparlow/platform/qt/QtFonts.h"
#include "sparlow/platform/qt/QtModal.h"

namespace sparlow::qt {

int OpenMessageBox(const BoxRequest& request) {
  QMessageBox box;
  box.setWindowTitle(FromUtf8(ToUtf8(request.caption)));
  box.setTextFormat(Qt::PlainText);
  box.setText(FromUtf8(ToUtf8(request.text)));
  if ((request.style & MB_ICONMASK) == MB_ICONEXCLAMATION)
    box.setIcon(QMessageBox::Warning);
  else if ((request.style & MB_ICONMASK) == MB_ICONHAND)
    box.setIcon(QMessageBox::Critical);
  box.setStandardButtons(QMessageBox::Ok);
  QtModal modal(box, nullptr, [&box] { box.reject(); });
  box.setWindowModality(Qt::ApplicationModal);
  // It has its size only when it is shown.
  box.show();
  modal.Place();
  box.exec();
  return IDOK;
}

}  // namespace sparlow::qt
