// Notes created from objects, and the parameters required for posting.
#include "accounting/Notes.h"

#include "accounting/cBLLNoteContabile.h"
#include "TestCompany.h"
#include "util/Errors.h"

namespace velmar {
namespace {

TEST(NotesTest, ANoteFromAnObjectFillsEveryColumnAndGetsANumber) {
  const TestCompany company;
  bool done = false;
  cBLLNoteContabile note;
  note.Jurnal = "JV";
  note.DataInr = QDate(2026, 1, 31);
  note.Cont = "4111";
  note.Debit = 11905_dec / 100;
  note.DOC = note.Marca = "12";
  note.Tert = 5;
  note.TVAINC = -1;
  note.Prov = "G";
  note.AddNota(false, done);
  EXPECT_TRUE(done);
  EXPECT_EQ(note.NDI, 1);
  note.Cont = "707";
  note.Debit = 0;
  note.Credit = 11905_dec / 100;
  note.cod = "EUR";
  note.Tert = nullptr;
  note.AddNota(true, done);
  note.AddNota(false, done);
  EXPECT_EQ(note.NDI, 2);
  EXPECT_EQ(note.NrLinie, 1);

  const Recordset rows = OpenRs("SELECT * FROM kt_linii ORDER BY NDI, NRLINIE");
  ASSERT_EQ(rows.size(), 3);
  EXPECT_EQ(rows[0].text("COD"), "LEI");
  EXPECT_EQ(rows[1].text("COD"), "EUR");
  EXPECT_EQ(rows[1].integer("NRLINIE"), 2);
  EXPECT_EQ(rows[0].date("DATASCAD"), QDate(2026, 2, 28));
  EXPECT_EQ(rows[0].integer("TVAINC"), -1);
  EXPECT_EQ(rows[0].integer("TERT"), 5);
  EXPECT_TRUE(rows[1].isNull("TERT"));

  // A column that is not set must fail instead of remaining empty.
  ExecutaSql("ALTER TABLE kt_linii ADD COLUMN Noua TEXT");
  EXPECT_THROW(note.AddNota(true, done), StoreError);
  EXPECT_FALSE(done);
  EXPECT_EQ(OpenRs("SELECT COUNT(*) AS N FROM kt_linii").first().integer("N"), 3);
}

TEST(NotesTest, UnbalancedRowsAndRowsWithoutAnAccountAreRefused) {
  const TestCompany company;
  Note note;
  note.journal = "BI";
  note.date = QDate(2026, 1, 1);
  note.number = "1";
  note.rows.resize(2);
  note.rows[0].account = "345";
  note.rows[0].debit = 10;
  note.rows[1].account = "711";
  note.rows[1].credit = 9;
  EXPECT_THROW(writeNotes({note}), StoreError);
  note.rows[1].credit = 10;
  note.rows[1].account = " ";
  EXPECT_THROW(writeNotes({note}), RuleError);
  EXPECT_EQ(writeNotes({Note()}), 0);
  note.rows[1].account = "711";
  EXPECT_EQ(writeNotes({note}), 1);
  EXPECT_EQ(writeNotes({note}), 2);
}

TEST(NotesTest, AMissingParameterReportsItsGroup) {
  const TestCompany company;
  MessageRecorder messages;
  EXPECT_EQ(ParametruSocietate("CONTNIR"), "408");
  ExecutaSql("UPDATE kt_par SET CONTNIR = '', JURNIR = NULL, TVAVanzare = NULL");
  EXPECT_EQ(ParametruSocietate("CONTNIR"), "");
  EXPECT_EQ(ParametruSocietate("JURNIR"), "");
  EXPECT_EQ(ParametruSocietate("TVAVanzare"), "");
  EXPECT_EQ(messages.take(),
            QStringList({"Nu au fost stabilite toate conturile necesare la configurarea societatii !",
                         "Nu au fost stabilite toate jurnalele necesare la configurarea societatii !",
                         "Eroare la obtinerea unui parametru al societatii !"}));
  EXPECT_THROW(ParametruSocietate("CONTNIR FROM kt_info --"), StoreError);

  ExecutaSql("UPDATE kt_par SET SERIEFC = ' ', FCSTART = '100', FCEND = NULL, MODAUDIO = -1, DATAIC = NULL");
  ExecutaSql("UPDATE kt_info SET NrZec = 3, TCOST = 'MP'");
  InitParaSoc();
  IncarcaSerii();
  EXPECT_EQ(session().gSerieFC, "00");
  EXPECT_EQ(session().gFCStart, "100");
  EXPECT_EQ(session().gFCEnd, "00");
  EXPECT_TRUE(session().ModAudio);
  EXPECT_EQ(session().DataIC, clock::today());
  EXPECT_EQ(session().NrZec, 3);
  EXPECT_EQ(session().TCOST, "MP");
  EXPECT_EQ(session().CasaMarcat, " ");
}

}  // namespace
}  // namespace velmar
