// Orders of hearing devices: the list, and an order with its two audiograms and their curves.
#pragma once

#include "hearing/Orders.h"
#include "hearing/windows/HearingForm.h"

namespace velmar {

class AudiogramView;
class EntryGrid;
class NumberBox;

class frmComandaAudio : public HearingForm {
  Q_OBJECT
 public:
  explicit frmComandaAudio(QWidget* parent = nullptr);

 protected:
  void showRecord(const Row* record) override;
  void startNew() override;
  BackgroundRead::Work totalsRead() const override;

 private:
  struct Chart {
    Audiogram kind;
    EntryGrid* grid;
    AudiogramView* curves;
  };

  QWidget* listPage();
  QWidget* cardPage();
  QWidget* partiesFrame();
  QWidget* deviceFrame();
  QWidget* papersFrame();
  QWidget* earFrame();
  QWidget* audiogramFrame(Chart& chart, const QString& frame, const QString& title, const QString& grid,
                          const QString& curves);
  QLineEdit* numberBox(const QString& column, const QString& name);
  NumberBox* priceBox(const QString& column, const QString& name);
  QList<QPushButton*> commands();

  void showOrder(const Row& order);
  void showAudiograms();
  void storePoint(Audiogram kind, const Row& row, const QString& column, const QString& text);
  void deviceChosen();
  void showDifference();
  void showHidden();
  void openHidden();
  void save();
  void add();
  void remove();
  void importFile();
  void print();

  Row shown_;  ///< as stored; empty for a new order
  NumberBox* txtPretVanzare_ = nullptr;
  NumberBox* txtCompensareCAS_ = nullptr;
  NumberBox* txtDiferenta_ = nullptr;
  Chart tone_{Audiogram::Tone, nullptr, nullptr};
  Chart speech_{Audiogram::Speech, nullptr, nullptr};
  QLabel* lblNeafisate_ = nullptr;
  QPushButton* cmdNeafisate_ = nullptr;
  TDBGrid* grdNeafisate_ = nullptr;
  QList<QPushButton*> listCommands_;
};

}  // namespace velmar
