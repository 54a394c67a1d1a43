// The kinds whose bare statements write the rows that the program wrote (BareRows.h).
#pragma once

#include "Validated.h"

namespace velmar::bench {

const Validated& deliveryNotes();
const Validated& invoicesFromNotes();
const Validated& stornos();
const Validated& transfers();
const Validated& receiptNotes();
const Validated& customerOrders();
const Validated& supplierOrders();
const Validated& proformas();

}  // namespace velmar::bench
