#include "config/AccountPlan.h"

#include "config/Parameters.h"
#include "store/Database.h"
#include "store/Records.h"
#include "util/Clock.h"
#include "util/Errors.h"
#include "util/NumberText.h"

namespace velmar {

namespace {

constexpr int kVatPercent = 19;

struct Plan {
  const char* source;
  const char* vatOfPurchases;
  const char* vatOfSales;
  const char* accounts[7];
};

const QString kAccountColumns =
    QStringLiteral("CONTFurnizori CONTClienti CONTNIR CONTVAMA CONTINTRPROD CONTAVIZEXP_M CONTAVIZEXP_P");

const Plan kPlans[] = {{"kt_pc_2003", "4426", "4427", {"401", "411", "408", "446", "711", "357", "354"}},
                       {"PLANBUG", "232.31", "232.32", {"234", "225", "", "", "", "", ""}},
                       {"PLANORG", "4426", "4427", {"401", "411", "408", "446", "711", "357", "354"}}};

}  // namespace

bool accountPlanMayChange() { return OpenRs("SELECT CONT FROM kt_linii LIMIT 1").isEmpty(); }

void changeAccountPlan(int number) {
  const Plan& plan = kPlans[number];
  Row info = rowOf("PlanC");
  info.set("PlanC", number);
  Transaction transaction(database());
  // A colleague may have posted since the window was opened.
  if (!accountPlanMayChange())
    throw RuleError("Planul de conturi nu se mai poate schimba, deoarece exista inregistrari contabile !");
  writeOnlyRecord("kt_info", info);
  ExecutaSql("DELETE FROM kt_cote");
  ExecutaSql("UPDATE kt_jur SET CONT = NULL");
  ExecutaSql("DELETE FROM kt_pc");
  ExecutaSql(QStringLiteral("INSERT INTO kt_pc (CONT, TITLU, CREARE, DEBITN, CREDITN, CODBUG, DEBITN_1, "
                            "CREDITN_1, SOLDN, NeUtilizabil) "
                            "SELECT CONT, TITLU, ?, 0, 0, '', 0, 0, 0, NeUtilizabil FROM %1 ORDER BY CONT")
                 .arg(QString::fromLatin1(plan.source)),
             {clock::today().toString(QStringLiteral("dd/MM/yyyy"))});
  database().insertRows("kt_cote", {"COD", "CONT", "PROCENT"},
                        {{1, plan.vatOfPurchases, kVatPercent}, {2, plan.vatOfSales, kVatPercent}});
  transaction.commit();
}

Row defaultAccounts(int number) {
  Row accounts = rowOf(kAccountColumns);
  for (int i = 0; i < accounts.columns().size(); ++i)
    if (const QString account = QString::fromLatin1(kPlans[number].accounts[i]); !account.isEmpty())
      accounts.set(accounts.columns()[i], account);
  return accounts;
}

}  // namespace velmar
