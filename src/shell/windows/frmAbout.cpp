#include "shell/windows/frmAbout.h"

#include <QBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "util/windows/Look.h"

namespace velmar {

frmAbout::frmAbout(QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("frmAbout"));
  setWindowTitle(QStringLiteral("Informatii"));
  const int unit = fontMetrics().height();

  auto* picture = new QLabel;
  picture->setPixmap(icon(QStringLiteral("app")).pixmap(3 * unit));
  auto* description = new QLabel(QStringLiteral("Program de Gestiune Comerciala"));
  description->setObjectName(QStringLiteral("lblDescription"));
  QFont bold = description->font();
  bold.setBold(true);
  description->setFont(bold);
  auto* version = new QLabel(QStringLiteral("Versiune " VELMAR_VERSION));
  version->setObjectName(QStringLiteral("lblVersion"));
  auto* cmdOK = new QPushButton(QStringLiteral("OK "));
  cmdOK->setObjectName(QStringLiteral("cmdOK"));
  cmdOK->setDefault(true);
  connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);

  auto* texts = new QVBoxLayout;
  texts->addStretch();
  texts->addWidget(description);
  texts->addWidget(version);
  texts->addStretch();
  auto* top = new QHBoxLayout;
  top->setSpacing(unit);
  top->addWidget(picture);
  top->addLayout(texts);
  top->addStretch();
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(cmdOK);
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(unit, unit, unit, unit);
  all->setSpacing(unit);
  all->addLayout(top);
  all->addLayout(buttons);
  all->setSizeConstraint(QLayout::SetFixedSize);
}

}  // namespace velmar
