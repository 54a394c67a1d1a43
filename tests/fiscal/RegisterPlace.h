// The fixture of the fiscal register tests: folders, programs that simulate a register, and a RegisterWait.
#pragma once

#include <gtest/gtest.h>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include "fiscal/FiscalRegisters.h"
#include "fiscal/OutsideProgram.h"
#include "fiscal/RegisterWait.h"
#include "TestCompany.h"
#include "util/Settings.h"

namespace velmar {

/// Waits in an event loop and gives up after that many milliseconds.
class WaitingUser : public RegisterWait {
 public:
  WaitingUser() : previous_(setRegisterWait(this)) {}
  ~WaitingUser() override { setRegisterWait(previous_); }

  void wait(OutsideProgram& program) override {
    QEventLoop loop;
    QObject::connect(&program, &OutsideProgram::ended, &loop, &QEventLoop::quit);
    QTimer::singleShot(patience, &loop, &QEventLoop::quit);
    loop.exec();
  }

  int patience = 20000;

 private:
  RegisterWait* previous_;
};

class RegisterPlace : public testing::Test {
 protected:
  RegisterPlace() {
    settings::setFolder(place_.filePath("settings"));
    settings::setDriveFolder(drive());
    session().gCaleAplicatie = app();
    for (const QString& folder : {drive(), app()}) QDir().mkpath(folder);
  }
  ~RegisterPlace() override {
    session().gCaleAplicatie.clear();
    settings::setFolder({});
  }

  QString drive(const QString& file = {}) const { return place_.filePath("drive/" + file); }
  QString app(const QString& file = {}) const { return place_.filePath("app/" + file); }

  static void put(const QString& path, const QByteArray& content = "vechi") {
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
  }

  static QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
  }

  /// The output of a program that is not waited for.
  static QByteArray left(const QString& path) {
    QElapsedTimer since;
    since.start();
    while (!QFile::exists(path) && since.elapsed() < 10000) QThread::msleep(5);
    return contentOf(path);
  }

  /// Creates a program with these commands.
  static void putProgram(const QString& path, const QByteArray& script) {
    put(path, "#!/bin/sh\n" + script);
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  }

  static Decimal dec(const char* text) { return *Decimal::parse(QString::fromLatin1(text)); }

  /// A line without discount.
  static ReceiptLine line(const char* name, const char* price, const char* quantity,
                          const char* code = "A1") {
    return {QString::fromUtf8(name),
            QString::fromUtf8(code),
            dec(price),
            dec(price) * dec(quantity),
            dec(price),
            dec(quantity)};
  }

  static Receipt receipt(const std::vector<ReceiptLine>& lines, int vat = 19, int decimals = 2) {
    Receipt made;
    made.CotaTVA = vat;
    made.NrZec = decimals;
    made.NrCaractere = 20;
    made.lines = lines;
    return made;
  }

  TestCompany company_;
  QTemporaryDir place_;
  MessageRecorder messages_;
  WaitingUser user_;
};

}  // namespace velmar
