#include "platform/linux/interface/AboutPanel.h"

#include <QApplication>
#include <QIcon>
#include <QMessageBox>
#include <QString>

namespace talmo {
namespace {

constexpr int iconSize = 64;

QMessageBox* makeBox() {
  auto* const box = new QMessageBox;
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->setWindowModality(Qt::NonModal);
  box->setWindowTitle(QStringLiteral("About Talmo"));
  box->setIconPixmap(QApplication::windowIcon().pixmap(iconSize));
  box->setTextFormat(Qt::PlainText);
  box->setText(QStringLiteral("Talmo " TALMO_VERSION));
  box->setInformativeText(QStringLiteral("Your media keys, at the right player."));
  box->setStandardButtons(QMessageBox::Close);
  return box;
}

}  // namespace

AboutPanel::~AboutPanel() {
  delete box_;
}

void AboutPanel::show() {
  if (box_ == nullptr) box_ = makeBox();
  box_->show();
  bringForward();
}

void AboutPanel::bringForward() {
  if (box_ == nullptr) return;
  box_->raise();
  box_->activateWindow();
}

}  // namespace talmo
