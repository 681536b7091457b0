#pragma once

namespace quillo::test {

// Receivables small enough to be aged on paper. Home is CAD; Birch buys in US dollars, Dogwood has no currency of its
// own and one document in US dollars.
//
//   Ash      F1 01-31 100, paid 40 with 2 off on 02-10; F2 03-01 200; N1 03-02 -50, 30 of it set against F2 on 04-10;
//            I1 03-31 5
//   Birch    U1 02-15 1000 USD at 1.35, paid 400 on 04-20; U2 03-10 cash sale of 80 USD at 1.3333, 30 received;
//            a correction of 7.50 CAD on 03-05
//   Cedar    C1 01-05 60, settled by N2 01-10 -5 and 55 on 03-15; C2 a cash sale received in full
//   Dogwood  25 on account 02-01, 15 of it used for D2 on 05-10; D1 03-20 10 USD at 1.4; D2 04-30 70, of which 10 were
//            paid on 04-25, before its day; an order
constexpr const char* receivables =
    "UPDATE CompanyFact SET Value = '1' WHERE Name = 'UsesForeignCurrency';"
    "INSERT INTO WorldCurrency VALUES (2, 'USD', 'US dollar');"
    "INSERT INTO Dictionary VALUES ('US dollar', 'fr', 'Dollar américain');"
    "INSERT INTO ExchangeRateByDay VALUES (2, '2024-01-01', 1.25), (2, '2024-04-01', 1.5);"
    "INSERT INTO Segment VALUES (1, 'S1', 'East'), (2, 'S2', 'West');"
    "INSERT INTO GLAcct (InGLAcctId, GLAcctId) VALUES (1, '1100'), (2, '1110');"
    "INSERT INTO AccountGroup VALUES ('CustGLAR', 1, 1), ('CustGLAR', 2, 2);"
    "INSERT INTO GLDet (SeqNo, DetDate, Source, ExAcctId, DetAmnt, ForeignAmnt, ExCurrencyId, ARAPAdjustmentEntry) "
    "VALUES"
    " (1, '2024-03-30', 'GEN', 1, -3, 0, 1, 1), (2, '2024-03-30', 'GEN', 2, -13, -10, 2, 1);"
    "INSERT INTO Cust (InCustId, CustId, Name, Contact, Tel1, ExCurrencyId) VALUES (10, 'A', 'Ash', 'Al', '555-1', 1),"
    " (11, 'B', 'Birch', 'Bo', '555-2', 2), (12, 'C', 'Cedar', 'Cy', '555-3', 1), (13, 'D', 'Dogwood', NULL, NULL, "
    "NULL);"
    "INSERT INTO InvoiHdr (InInvoiId, InvoiId, InvoiType, InvoiDate, DueDate, ExCustId, ExCurrencyId, ExchangeRate,"
    " TotAmnt, RecAmnt, RecCheqNo, ExSegmentId) VALUES"
    " (101, 'F1', 1, '2024-01-31', '2024-03-31', 10, 1, 1, 100, NULL, NULL, 1),"
    " (102, 'F2', 1, '2024-03-01', '2024-05-01', 10, 1, NULL, 200, NULL, NULL, 2),"
    " (103, 'N1', 3, '2024-03-02', NULL, 10, 1, 1, -50, NULL, NULL, NULL),"
    " (104, 'I1', 4, '2024-03-31', NULL, 10, 1, 1, 5, NULL, NULL, NULL),"
    " (105, 'U1', 1, '2024-02-15', NULL, 11, 2, 1.35, 1000, NULL, NULL, NULL),"
    " (106, 'U2', 2, '2024-03-10', NULL, 11, 2, 1.3333, 80, 30, '77', NULL),"
    " (107, 'C1', 1, '2024-01-05', NULL, 12, 1, 1, 60, NULL, NULL, NULL),"
    " (108, 'C2', 2, '2024-01-06', NULL, 12, 1, 1, 20, 20, NULL, NULL),"
    " (109, 'D1', 1, '2024-03-20', NULL, 13, 2, 1.4, 10, NULL, NULL, NULL),"
    " (110, 'D2', 1, '2024-04-30', NULL, 13, NULL, NULL, 70, NULL, NULL, NULL),"
    " (111, 'O1', 51, '2024-01-02', NULL, 13, 1, 1, 900, NULL, NULL, NULL),"
    " (112, 'N2', 3, '2024-01-10', NULL, 12, 1, 1, -5, NULL, NULL, NULL);"
    "INSERT INTO PmtHdr (InPmtId, PmtDate, ChqNo, ExCustId, ExCurrencyId, ExchangeRate, PmtTotAmnt, DiscTotAmnt,"
    " PaymentCreditApplication) VALUES"
    " (301, '2024-02-10', '901', 10, 1, 1, 40, 2, NULL), (302, '2024-04-10', 'N1', 10, 1, 1, 0, 0, 103),"
    " (303, '2024-04-20', '903', 11, 2, 1.5, 400, 0, 0), (304, '2024-03-15', '904', 12, 1, 1, 55, 0, NULL),"
    " (305, '2024-02-01', '905', 13, 1, 1, 25, 0, NULL), (306, '2024-05-10', '905', 13, 1, 1, 0, 0, 305),"
    " (307, '2024-04-25', '907', 13, 1, 1, 10, 0, NULL), (308, '2024-01-20', 'N2', 12, 1, 1, 0, 0, 112);"
    "INSERT INTO PmtDet (ExPmtId, ExInvoiId, PmtAmnt, PmtDisc) VALUES (301, 101, 40, 2), (302, 102, 30, 0),"
    " (302, 103, -30, 0), (303, 105, 400, NULL), (304, 107, 55, 0), (305, NULL, 25, 0), (306, 110, 15, 0),"
    " (306, NULL, -15, 0), (307, 110, 10, 0), (308, 107, 5, 0), (308, 112, -5, 0);"
    "INSERT INTO CustHomeAdjustment VALUES (401, 'AJ-1', '2024-03-05', 11, 7.5, NULL);";

}  // namespace quillo::test
