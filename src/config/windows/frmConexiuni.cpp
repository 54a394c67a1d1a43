#include "config/windows/frmConexiuni.h"

#include <QBoxLayout>
#include <QFontDatabase>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include "store/Database.h"
#include "store/Roster.h"
#include "util/Errors.h"
#include "util/windows/Forms.h"

namespace velmar {

namespace {

QString line(const Connection& connection) {
  return connection.computer + QString(5, QLatin1Char(' ')) + connection.login +
         QString(8, QLatin1Char(' ')) +
         (connection.connected ? QStringLiteral("DA ") : QStringLiteral("Nu ")) +
         QString(15, QLatin1Char(' ')) + connection.suspectState;
}

}  // namespace

frmConexiuni::frmConexiuni(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("frmConexiuni"));
  setWindowTitle(QStringLiteral("Utilizatori conectati"));
  const QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  auto* caption = new QLabel(QStringLiteral(" Calculator           Utilizator    Conectat     "));
  caption->setObjectName(QStringLiteral("Label1"));
  caption->setFont(fixed);
  lstUsers_ = new QListWidget;
  lstUsers_->setObjectName(QStringLiteral("lstUsers"));
  lstUsers_->setFont(fixed);
  lstUsers_->setMinimumSize(QFontMetrics(fixed).averageCharWidth() * 64, fontMetrics().height() * 10);
  lblUsers_ = new QLabel(QStringLiteral("Apasati \"Arata\" pentru lista conexiunilor."));
  lblUsers_->setObjectName(QStringLiteral("lblUsers"));
  auto* cmConexiuni = new QPushButton(QStringLiteral("Arata"));
  cmConexiuni->setObjectName(QStringLiteral("cmConexiuni"));
  connect(cmConexiuni, &QPushButton::clicked, this,
          [this] { guarded("frmConexiuni", "cmConexiuni_Click", [this] { showConnections(); }); });

  auto* bottom = new QHBoxLayout;
  bottom->addWidget(lblUsers_, 1);
  bottom->addWidget(cmConexiuni);
  auto* all = new QVBoxLayout(this);
  all->addWidget(caption);
  all->addWidget(lstUsers_, 1);
  all->addLayout(bottom);
  setUpKeys(this, cmConexiuni, nullptr);
  setFocusProxy(cmConexiuni);
}

void frmConexiuni::showConnections() {
  const QList<Connection> found = connections(database().path());
  lstUsers_->clear();
  for (const Connection& connection : found) lstUsers_->addItem(line(connection));
  lblUsers_->setText(QStringLiteral("%1 Conexiuni deschise").arg(found.size()));
}

}  // namespace velmar
