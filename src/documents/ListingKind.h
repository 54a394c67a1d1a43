// The description of a kind's listing form: what it offers and what it reads.
#pragma once

#include <QList>
#include <QStringList>

#include "stock/LedgerKey.h"

namespace velmar {

/// A box of a listing form, whose text is a variable of the report.
struct ListingBox {
  const char* variable;
  const char* control;  ///< its name on the form
  const char* caption;
};

/// The box with a date; all others contain texts.
inline constexpr const char* kDispatchDate = "DataExp";

/// The description of a listing form.
struct ListingKind {
  KindId kind;   ///< of its documents
  QString form;  ///< class name
  QString caption;
  QString project;             ///< file name of its layout
  QString preprinted = {};     ///< of the layout for a pre-printed form; empty: no such choice
  bool offersReceipt = false;  ///< CheckChitanta
  bool offersCurrency = false;
  bool storesLei = false;      ///< amounts are stored in lei, also of a document in currency
  bool printsSum = false;      ///< total in figures and words, and the series of invoices
  QString wordsCurrency = {};  ///< in which the total is put into words; empty: that of the document
  bool choosesTarget =
      false;  ///< "Listare" first prints to a target chosen by the user, then shows the preview
  QList<ListingBox> boxes = {};  ///< of the delegate's frame
  QString headerSql = {};        ///< the one row of the document with that number
  QString linesSql = {};         ///< its lines with that number
  QStringList partner = {};      ///< columns of kt_ter, as variables
  QString missingPartner = {};   ///< the message without a partner; empty: the common one
  // Of documents that are none of the 13 kinds; empty: those of the kind.
  QString dateColumn = {};     ///< of the header
  QString partnerColumn = {};  ///< of the header
  QString unsaved = {};        ///< the message when there is no such document
};

}  // namespace velmar
