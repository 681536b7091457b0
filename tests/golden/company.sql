-- A small company in which every report meets each of its branches. Three currencies, two segments, the project that
-- stands for "none known", and January 2024 as the month that is printed.
UPDATE CompanyFact SET Value = '1' WHERE Name = 'UsesForeignCurrency';
INSERT INTO WorldCurrency VALUES (2, 'USD', 'US dollar'), (3, 'EUR', 'Euro');
INSERT INTO Segment VALUES (1, 'S1', 'East'), (2, 'S2', 'West');
INSERT INTO TaxGroup (InTaxGroupId, TaxGroupId, TaxGroupDescr) VALUES (1, 'QC', 'Quebec');

-- Each mode, one that is not known and one that is missing; the modes without figures come before those two.
INSERT INTO Term (InTermId, TermId, Descr, TermMode, Due, DiscPercent, DiscDelay, DueNxtMonth) VALUES
  (1, 'N30', 'a net', 1, 30, 2.5, 10, 0), (2, 'COD', 'b instalments', 2, 5, 0, 0, 0),
  (3, 'ODD', 'c odd', 9, 6, 0, 0, 0), (4, 'NUL', 'd missing', NULL, 7, 0, 0, 0),
  (5, 'DOM', 'e day of the month', 4, 15, 1, 5, 25), (6, 'REC', 'f instalments', 3, 1, 0, 0, 0),
  (7, 'LNG', 'g a term whose description is too long for one line', 1, 60, 0, 0, 0);

-- Birch has everything, Ash next to nothing, Cedar is inactive, Dogwood points at a tax group that is not there.
INSERT INTO Cust (InCustId, CustId, Name, Contact, Tel1, TelExt1, Tel2, TelExt2, Fax, Web, Email, NameLang, SalesPerson,
                  ExTermId, ExTaxGroupId, ExGLAcctId, ExCurrencyId, CreditLim, CustInactive) VALUES
  (10, 'B', 'Birch & Sons, timber merchants of the north shore', 'Bo', '555-0101', '11', '555-0102', '12', '555-0103',
   'HTTP://birch.example', 'b@birch.example', 2, 'Sam', 1, 1, 1, 1, 1234567.5, 0),
  (11, 'a', 'Ash', 'Al', '555-0111', NULL, NULL, NULL, NULL, NULL, NULL, 1, NULL, NULL, NULL, NULL, 2, NULL, NULL),
  (12, 'C', 'Cedar', 'Cy', '555-0121', NULL, NULL, NULL, '', 'cedar.example', NULL, NULL, NULL, 1, 1, NULL, 1, 0, 1),
  (13, 'D', 'Dogwood', NULL, NULL, NULL, '555-0132', NULL, '', 'dogwood.example', NULL, NULL, NULL, 5, 7, NULL, 3, 0, 0);
INSERT INTO Country (InCountryId, CountryCode, CountryName) VALUES (1, 'CA', 'Canada');
INSERT INTO Addr (InAddrId, ExCustId, AddrKind, AddrName, AddrLine1, AddrLine2, City, Province, PostalCode, ExCountryId)
VALUES
  (1, 10, 0, NULL, '1 Main', NULL, 'Laval', 'QC', 'H7A 1A1', 1),
  (2, 10, 1, 'Dock', '2 Port', 'Gate 4', 'Levis', 'QC', 'G6V 1A1', 1), (3, 10, 1, 'Shop', '3 Mall', NULL, NULL, NULL, NULL, NULL),
  (4, 13, 1, NULL, NULL, NULL, 'Kanata', NULL, NULL, 1),
  (5, NULL, 0, 'Golden & Co.', '9 Quay', 'Floor 2', 'Laval', 'QC', 'H7A 2B2', 1);
INSERT INTO CustomField (InFieldId, ForTable, Caption, Position) VALUES (1, 'Cust', 'Route', 2), (2, 'Cust', 'Licence', 1);
INSERT INTO CustomFieldValue (ExFieldId, RecordId, Value) VALUES (1, 10, 'North'), (2, 10, 'L-1'), (1, 11, ''), (1, 13, 'South');

INSERT INTO ProjInfo (InProjId, ProjId, Descr, BegDate, EndDate, EstSales, EstPurch, EstHours, Inactive) VALUES
  (1, '~Inconnu~', 'None known', NULL, NULL, NULL, NULL, NULL, NULL), (2, '0', '0', NULL, NULL, NULL, NULL, NULL, 1),
  (3, 'P3', 'Quay', '2024-01-02', '2024-06-30', 1000.5, 20, 7.25, 0), (4, 'P4', 'Old', NULL, NULL, 9, 9, 9, 1);

-- Orders: two currencies under one customer, a negative amount, a missing one, one that is approved, one too late.
-- Documents: a sale with discount, freight and tax, a cash sale, a credit note, a foreign sale, interest without a rate.
INSERT INTO InvoiHdr (InInvoiId, InvoiId, InvoiType, InvoiDate, RecDate, ShipDate, ExCustId, ExCurrencyId, ExchangeRate,
                      DetAmnt, DiscTotAmnt, ShipAmnt, TaxAmnt, TotAmnt, RecCheqNo, ExPmtMethId, RecAmnt, ToApprove,
                      ExSegmentId) VALUES
  (1, 'O1', 51, '2024-01-05', '2024-01-05', '2024-01-09', 10, 1, 1, 100, NULL, NULL, NULL, 100, NULL, NULL, NULL, 1, 1),
  (2, 'O2', 51, '2024-01-06', '2024-01-06', NULL, 11, 2, 1.3, 10.05, NULL, NULL, NULL, 10.05, NULL, NULL, NULL, 1, 2),
  (3, 'O3', 51, '2024-01-07', '2024-01-07', NULL, 11, 1, 1, 50, NULL, NULL, NULL, 50, NULL, NULL, NULL, 0, NULL),
  (4, 'O4', 51, '2024-01-08', '2024-01-08', NULL, 10, 1, 1, -5, NULL, NULL, NULL, -5, NULL, NULL, NULL, NULL, 1),
  (5, 'O5', 51, '2024-01-09', '2024-01-09', NULL, 10, 1, 1, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, 2, 1),
  (6, 'Q1', 50, '2024-01-10', '2024-01-10', NULL, 13, 3, 1.5, 20, NULL, NULL, NULL, 20, NULL, NULL, NULL, 1, 1),
  (7, 'O6', 51, '2024-02-01', '2024-02-01', NULL, 10, 1, 1, 8, NULL, NULL, NULL, 8, NULL, NULL, NULL, 1, 1),
  (101, 'F1', 2, '2024-01-05', NULL, NULL, 10, 1, 1, 95, 5, 10, 10, 115, '55', NULL, NULL, NULL, 1),
  (102, 'F2', 1, '2024-01-07', NULL, NULL, 10, 1, 1, 40, NULL, 0, 0, 40, '66', 2, 40, NULL, NULL),
  (103, 'N1', 3, '2024-01-08', NULL, NULL, 11, 1, 1, -20, 0, NULL, NULL, -20, NULL, 4, -20, NULL, 1),
  (104, 'U1', 1, '2024-01-07', NULL, NULL, 11, 2, 1.35, 100, NULL, 4, NULL, 104, NULL, NULL, NULL, NULL, 2),
  (105, 'I1', 4, '2024-01-11', NULL, NULL, 13, 3, NULL, 7, NULL, NULL, 1, 8, NULL, NULL, NULL, NULL, 1);

INSERT INTO PmtMeth VALUES (1, 'Visa'), (2, 'VISA'), (3, 'Cheque'), (4, 'Cash');
INSERT INTO GLAcct (InGLAcctId, GLAcctId, Descr, ChqAcct) VALUES
  (1, '1010', 'Bank', 1), (2, '1020', 'Drawer', 1), (3, '1100', 'Receivables', 0), (4, '4000', 'Sales', 0),
  (5, '4200', 'Discounts', 0), (6, '4900', 'Other', 0), (7, '9000', 'Clearing', 0);
INSERT INTO AccountGroup VALUES ('CustGLAR', 1, 3), ('CustGLAR', 2, 3), ('CustGLAR', 3, 7);
INSERT INTO InvoiRecDet (ExInvoiId, ExPmtMethId, RecAmnt) VALUES (101, 1, 60), (101, 4, 15), (101, 1, 40);
INSERT INTO PmtHdr (InPmtId, PmtDate, ExPmtMethId, PmtTotAmnt, DiscTotAmnt, ExSegmentId) VALUES
  (201, '2024-01-06', 3, 90, 10, 1), (202, '2024-01-07', 1, 100, NULL, 2);
INSERT INTO PmtDet (ExPmtId, ExInvoiId, PmtAmnt, PmtDisc) VALUES (201, 101, 50, 10), (201, 102, 40, NULL), (202, 104, 100, 0);
INSERT INTO DepHdr VALUES (301, 'D1', '2024-01-09', 1, 1);
INSERT INTO DepDet (ExDepID, ExPmtMethId, RecAmnt, RecExSrcKeyVal) VALUES
  (301, 3, 300, 101), (301, NULL, 200, NULL), (301, 4, 25, NULL);
INSERT INTO TaxTrxHdr VALUES (401, 'T1', '2024-01-10', 3);
INSERT INTO TaxTrxDet (ExTaxTrxID, ExAcctId, Amnt) VALUES (401, 3, 30);

-- Sequence 1 is a cash sale paid by two methods, 2 a payment with a discount, 3 a sale without reference, 4 a payment in
-- US dollars, 5 a refund, 6 a deposit, 7 a tax refund, 8 of a document that is gone, 9 a foreign sale on credit with an
-- account that clears and a posting that rounds away, 10 an adjustment without segment, 11 lies behind the month.
INSERT INTO GLDet (SeqNo, DetDate, Source, ExSrcKeyVal, DetRef, DetDesc, ExAcctId, DetAmnt, ForeignAmnt, ExCurrencyId,
                   ExchangeRate, ExProjId, ExSegmentId) VALUES
  (1, '2024-01-05', 'INV', 101, 'F1', 'Birch', 1, 115, 77, 1, 1, 2, 1),
  (1, '2024-01-05', 'INV', 101, 'F1', 'Birch', 4, -100.005, 0, 1, 1, 3, 1),
  (1, '2024-01-05', 'INV', 101, 'F1', 'Birch', 6, -14.995, NULL, 1, 1, NULL, 1),
  (2, '2024-01-06', 'PMT', 201, 'P1', 'Birch', 1, 90, 0, 1, 1, NULL, 1),
  (2, '2024-01-06', 'PMT', 201, 'P1', 'Birch', 5, 10, 0, 1, 1, NULL, 1),
  (2, '2024-01-06', 'PMT', 201, 'P1', 'Birch', 3, -100, 0, 1, 1, NULL, 1),
  (3, '2024-01-07', 'INV', 102, NULL, 'Birch', 2, 40, 0, 1, 1, NULL, NULL),
  (3, '2024-01-07', 'INV', 102, NULL, 'Birch', 4, -40, 0, 1, 1, NULL, NULL),
  (4, '2024-01-07', 'PMT', 202, 'P2', 'Ash', 1, 135, 100, 2, 1.35, NULL, 2),
  (4, '2024-01-07', 'PMT', 202, 'P2', 'Ash', 3, -135, -100, 2, 1.35, NULL, 2),
  (5, '2024-01-08', 'INV', 103, 'N1', 'Ash', 2, -20, 0, 1, 1, NULL, 1),
  (5, '2024-01-08', 'INV', 103, 'N1', 'Ash', 4, 20, 0, 1, 1, NULL, 1),
  (6, '2024-01-09', 'DEP', 301, 'D1', 'Bank deposit', 1, 525, 0, 1, 1, NULL, 1),
  (6, '2024-01-09', 'DEP', 301, 'D1', 'Bank deposit', 2, -300, 0, 1, 1, NULL, 1),
  (6, '2024-01-09', 'DEP', 301, 'D1', 'Bank deposit', 4, -225, 0, 1, 1, NULL, 1),
  (7, '2024-01-10', 'TAX', 401, 'T1', 'Refund', 1, 30, 0, 1, 1, NULL, 1),
  (7, '2024-01-10', 'TAX', 401, 'T1', 'Refund', 3, -30, 0, 1, 1, NULL, 1),
  (8, '2024-01-11', 'INV', 999, 'F9', 'Lost', 1, 7, 0, 1, 1, NULL, 1),
  (8, '2024-01-11', 'INV', 999, 'F9', 'Lost', 4, -7, 0, 1, 1, NULL, 1),
  (9, '2024-01-07', 'INV', 104, 'U1', 'Ash', 3, 140.4, 104, 2, 1.35, 3, 2),
  (9, '2024-01-07', 'INV', 104, 'U1', 'Ash', 4, -140.4, -104, 2, 1.35, 3, 2),
  (9, '2024-01-07', 'INV', 104, 'U1', 'Ash', 7, 7, 5.19, 2, 1.35, NULL, 2),
  (9, '2024-01-07', 'INV', 104, 'U1', 'Ash', 7, -7, -5.19, 2, 1.35, NULL, 2),
  (9, '2024-01-07', 'INV', 104, 'U1', 'Ash', 6, 0.004, 0, 2, 1.35, NULL, 2),
  (10, '2024-01-12', 'ADM', 103, 'N1', 'Ash', 3, -5, NULL, 1, 1, NULL, NULL),
  (10, '2024-01-12', 'ADM', 103, 'N1', 'Ash', 4, 5, NULL, 1, 1, NULL, NULL),
  (11, '2024-02-01', 'INV', 101, 'F1', 'Birch', 1, 1, 0, 1, 1, NULL, 1),
  (11, '2024-02-01', 'INV', 101, 'F1', 'Birch', 4, -1, 0, 1, 1, NULL, 1);

-- What terms ask for: instalments by dates, of which more was paid ahead than was due; instalments by days in US dollars;
-- net days, paid in part with a discount; a day of the month in euros.
INSERT INTO PaymentSchedule (ExTermId, Position, Percent, DueDate, Days) VALUES
  (2, 1, 33.34, '2023-12-15', NULL), (2, 2, 33.33, '2024-01-15', NULL), (2, 3, 33.33, '2024-02-15', NULL),
  (6, 1, 50, NULL, 15), (6, 2, 50, NULL, 45);
INSERT INTO InvoiHdr (InInvoiId, InvoiId, InvoiType, InvoiDate, DueDate, ExCustId, ExTermId, ExCurrencyId, ExchangeRate,
                      DetAmnt, TotAmnt, RecAmnt, ExSegmentId) VALUES
  (111, 'T2', 1, '2023-12-05', '2024-02-15', 10, 2, 1, 1, 100.01, 100.01, NULL, 1),
  (112, 'T6', 1, '2023-12-20', '2024-02-03', 11, 6, 2, 1.35, 60.01, 60.01, 0, 2),
  (113, 'T1', 1, '2023-12-28', '2024-01-27', 10, 1, 1, 1, 500, 500, 0, NULL),
  (114, 'T5', 4, '2023-12-26', '2024-01-15', 13, 5, 3, 1.5, 30, 30, 0, 1);
UPDATE PmtHdr SET ExCustId = 10, ChqNo = 'P1', ExCurrencyId = 1, ExchangeRate = 1 WHERE InPmtId = 201;
UPDATE PmtHdr SET ExCustId = 11, ChqNo = 'P2', ExCurrencyId = 2, ExchangeRate = 1.35 WHERE InPmtId = 202;
INSERT INTO PmtHdr (InPmtId, PmtDate, ChqNo, ExCustId, ExCurrencyId, ExchangeRate, ExPmtMethId, PmtTotAmnt, DiscTotAmnt,
                    ExSegmentId) VALUES
  (203, '2023-12-20', 'P3', 10, 1, 1, 3, 50, NULL, 1), (204, '2024-01-25', 'P4', 10, 1, 1, 3, 300, 5, 1),
  (205, '2024-01-26', NULL, 13, 3, NULL, 3, 10, NULL, 1);
INSERT INTO PmtDet (ExPmtId, ExInvoiId, PmtAmnt, PmtDisc) VALUES (203, 111, 50, NULL), (204, 113, 300, 5), (205, 114, 10, 0);

-- A day at two tills: a sale for cash with change, one by card with a discount, one for US notes, one on account; an
-- order and a sale of the office, which no till counts; a receipt on an old invoice, and one by card at the till.
INSERT OR REPLACE INTO CashierParameter VALUES (3, 'CashPmtMethId', '4'), (3, 'OpeningAmount', '200'),
  (3, 'OpeningAmount.USD', '50');
INSERT OR REPLACE INTO ExchangeRateByDay VALUES (2, '2024-01-01', 1.35);
INSERT INTO GLAcct (InGLAcctId, GLAcctId, Descr, ChqAcct) VALUES (21, '4010', 'Lumber', 0), (22, '4020', 'Tools', 0);
INSERT INTO Item (InItemId, ItemId) VALUES (909, 'SCR-3');
INSERT INTO InvoiHdr (InInvoiId, InvoiId, InvoiType, InvoiDate, InvoiTime, ExCurrencyId, ExchangeRate, TaxAmnt, TotAmnt,
                      RecAmnt, ExPmtMethId, CashierSale, ExUsrKey, TrxSerNo) VALUES
  (909, 'OLD', 1, '2024-01-05', NULL, 1, 1, 0, 60, NULL, NULL, 0, NULL, NULL),
  (910, 'K10', 1, '2024-01-15', '09:10:00', 1, 1, 15, 115, 115, 4, 1, 'Kevin', 'MTL-01'),
  (911, 'K11', 1, '2024-01-15', '09:20:00', 1, 1, 27, 207, 207, 1, 1, 'Kevin', 'MTL-02'),
  (912, 'K12', 1, '2024-01-16', '09:30:00', 1, 1, 12, 92, 67, 4, 1, 'Nadia', 'MTL-01'),
  (913, 'K13', 3, '2024-01-16', '09:40:00', 1, 1, -6, -46, -46, 4, 1, 'Kevin', 'MTL-01'),
  (914, 'C14', 51, '2024-01-15', '09:50:00', 1, 1, 0, 500, 30, 4, 1, 'Kevin', 'MTL-01'),
  (915, 'F15', 1, '2024-01-15', '09:55:00', 1, 1, 0, 900, 900, 4, 0, 'Kevin', 'MTL-01'),
  (916, 'K16', 1, '2024-01-16', '10:00:00', 1, 1, 0, 9.99, 9.99, 4, 1, NULL, NULL);
INSERT INTO InvoiDet (InInvoiDetId, ExInvoiId, ExItemId, Descr, Qty, UnitPrice, DiscPercent, ExSaleAcctId) VALUES
  (910, 910, 909, 'Deck screws', 2, 50, NULL, 21), (911, 911, 909, 'A saw with a name that is long enough to wrap', 1,
  200, 10, 22), (912, 912, 909, 'Planks', 1, 80, 0, 21), (913, 913, NULL, 'Cutting', -1, 40, NULL, 21),
  (914, 914, 909, 'Ordered', 1, 500, NULL, 21), (915, 915, 909, 'Office', 1, 900, NULL, 21), (916, 916, 909, 'No account',
  1, 9.99, NULL, NULL), (917, 910, 909, 'Nails', 1000000, 3.333, 12.5, 21);
INSERT INTO InvoiRecDet (ExInvoiId, ExPmtMethId, ExCurrencyId, ExchangeRate, RecAmnt) VALUES
  (910, 4, 1, 1, 120), (910, 4, 1, 1, -5), (911, 1, 1, 1, 207), (912, 4, 2, 1.35, 100), (912, 4, 1, 1, -43);
INSERT INTO PmtHdr (InPmtId, PmtDate, ChqNo, ExPmtMethId, ExCurrencyId, ExchangeRate, PmtTotAmnt) VALUES
  (930, '2024-01-15', 'R-30', 4, 1, 1, 60), (931, '2024-01-16', 'R-31', 1, 1, 1, 25);
INSERT INTO PmtDet (InPmtDetId, ExPmtId, ExInvoiId, PmtAmnt, CashierPayment, ExUsrKey, TrxSerNo) VALUES
  (930, 930, 909, 60, 0, 'Kevin', 'MTL-01'), (931, 931, 912, 25, 1, 'Kevin', 'MTL-01');
INSERT INTO InvoiCashDeposit (ICDOperatorKey, ICDCashReg, ICDDate, ICDTime, ICDAmnt, ExCurrencyId, ExchangeRate) VALUES
  ('Kevin', 'MTL-01', '2024-01-15', '17:00:00', 150, 1, 1), ('Kevin', 'MTL-01', '2024-01-16', '17:05:00', 20, 2, 1.35);
INSERT INTO GLDet (SeqNo, DetDate, Source, ExAcctId, DetAmnt, ForeignAmnt, ExCurrencyId, ExchangeRate,
                   ARAPAdjustmentEntry) VALUES (12, '2024-01-15', 'GEN', 3, -13, -10, 2, 1.3, 1);
INSERT INTO CustHomeAdjustment VALUES (501, 'AJ-1', '2024-01-16', 11, 2.5, 2);

-- Fiscal years: the one before has two periods, the one of January begins in it.
INSERT INTO FiscalYear VALUES (1, '2023', '2023-01-01', '2023-12-31'), (2, '2024', '2024-01-01', '2024-12-31');
INSERT INTO FiscalPeriod VALUES (1, 1, '2023-01-01', '2023-01-15'), (1, 2, '2023-01-16', '2023-12-31'),
  (2, 1, '2024-01-01', '2024-01-31'), (2, 2, '2024-02-01', '2024-12-31');

-- Projects: what suppliers, employees and a sale cost and brought before the month and in it; a clearing account, which
-- only the balance brought forward knows; pay slips of somebody who is gone, cancelled, and without a mark.
INSERT OR REPLACE INTO Parameter (Section, Name, Value) VALUES ('KorvaAcctParams', 'WIPGLBankAccount', '31');
INSERT INTO GLAcct (InGLAcctId, GLAcctId, Descr, ChqAcct) VALUES (31, '1310', 'Time bank', 0),
  (32, '5100', 'Subcontractors and rented equipment', 0);
INSERT INTO ProjInfo (InProjId, ProjId, Inactive, Descr) VALUES (5, 'P5', 1, 'Repair of the landing stage and of the fish market behind '
  || 'the old customs house, phases two and three, with the breakwater  ');
INSERT INTO Supp (InSuppId, SuppId, Name) VALUES
  (31, 'S1', 'Lumber, piles and building supplies of the lower north shore and of the islands in the gulf, limited'),
  (32, 'S2', 'Hardware');
INSERT INTO PurcHdr (InPurcId, PurcId, PurcType, PurcDate, ExSuppId, TotAmnt) VALUES
  (801, 'A801', 1, '2023-12-10', 31, 500), (802, 'A802', 1, '2024-01-12', 31, 12345678.9), (803, 'D803', 2, '2024-01-18', 32, 40);
INSERT INTO Empl (InEmplId, EmplId, FirstName, LastName) VALUES (41, 'E1', 'Marie', 'Tremblay');
INSERT INTO TrxPay (InTrxPayId, TrxPayNo, PayDate, ExEmplId, Canceled) VALUES (851, 'P851', '2023-12-22', 41, 0),
  (852, 'P852', '2024-01-19', NULL, 0), (853, 'P853', '2024-01-19', 41, 1), (854, 'P854', '2023-12-08', 41, NULL),
  (855, 'P855', '2024-01-19', 41, 0);
INSERT INTO GLDet (SeqNo, DetDate, Source, ExSrcKeyVal, DetRef, DetDesc, ExAcctId, DetAmnt, ExProjId, ExSegmentId) VALUES
  (21, '2023-12-05', 'INV', 111, 'T2', 'Birch', 4, -100.01, 3, 1), (22, '2023-12-10', 'PUR', 801, 'A801', 'Lumber', 32, 500, 3, 2),
  (23, '2024-01-12', 'PUR', 802, 'A802', 'Lumber and piles, delivered to the quay in four loads', 32, 12345678.9, 5, 1),
  (24, '2024-01-18', 'EXP', 803, 'D803-2024-0001', 'Hardware', 32, 40, 3, NULL),
  (25, '2023-12-15', 'GEN', 0, 'TEC', 'Hours not billed', 31, 75, 3, 1), (26, '2023-12-08', 'PAY', 854, 'P854', NULL, 32, 20, 3, 1),
  (27, '2023-12-22', 'PAY', 851, 'P851', 'Marie Tremblay', 32, 300, 3, 1), (28, '2024-01-19', 'PAY', 852, 'P852', 'Gone', 32, 60, 3, 1),
  (29, '2024-01-19', 'PAY', 853, 'P853', 'Marie Tremblay', 32, 999, 3, 1), (29, '2024-01-19', 'PAY', 853, 'P853', 'Marie Tremblay', 32, -999, 3, 1),
  (30, '2024-01-19', 'PAY', 855, 'P855', 'Marie Tremblay', 32, 310.5, 3, 2), (31, '2023-12-28', 'PUR', 801, 'A801', 'Lumber', 32, 8, 4, 1);

-- Salespersons: one with a rate of his own, one without, one who is nobody's employee; sales at that rate, at others, a
-- credit note, a sale in US dollars. What was sold: goods whose cost changes on the sixth, a service, a kit, words alone.
INSERT INTO Empl (InEmplId, EmplId, FirstName, LastName, SalesComm) VALUES (801, 'S1', 'Sam', 'Lee', 4),
  (802, 'S2', 'Anne-Marie', 'Beauchemin-Larivière de la Chevrotière', NULL);
UPDATE InvoiHdr SET SalesPerson = 'Sam Lee', CommissionPercent = 5, CommissionAmount = DetAmnt * 0.05
  WHERE InInvoiId IN (101, 103);
UPDATE InvoiHdr SET SalesPerson = 'Sam Lee', CommissionPercent = 6, CommissionAmount = 6 WHERE InInvoiId = 104;
UPDATE InvoiHdr SET SalesPerson = 'Anne-Marie Beauchemin-Larivière de la Chevrotière', CommissionPercent = 2.5,
  CommissionAmount = 1 WHERE InInvoiId = 102;
UPDATE InvoiHdr SET SalesPerson = 'Gone Fishing', CommissionPercent = 10, CommissionAmount = 0 WHERE InInvoiId = 915;
INSERT INTO Item (InItemId, ItemId, Servc, IsKit) VALUES (801, 'PLK-8', 0, 0), (802, 'CUT', 1, 0), (803, 'SET-8', 0, 1);
INSERT INTO ItemComponent VALUES (803, 801, 2);
INSERT INTO InvenDet (InTrxId, ExItemId, DetDate, Source, Qty, CostAmnt, RunningAvgCost, RunningLastCost) VALUES
  (801, 801, '2024-01-02', 'PUR', 100, 550, 5.5, 5.5), (802, 801, '2024-01-06', 'PUR', 100, 650, 6, 6.5);
INSERT INTO InvoiDet (InInvoiDetId, ExInvoiId, ExItemId, Descr, Qty, BaseRowTotal, Servc, ExKitInvoiDetId) VALUES
  (801, 101, 801, 'Planks of eight feet, planed on both sides and at the ends', 10, 80, 0, NULL),
  (802, 101, 802, 'Cutting', 1, 15, 1, NULL), (803, 102, 803, 'Set of planks', 1, 40, 0, NULL),
  (804, 102, 801, 'Planks', 2, NULL, 0, 803), (805, 102, NULL, 'With compliments', NULL, 0, NULL, NULL),
  (806, 103, 801, 'Planks', 1, 20, 0, NULL), (807, 104, 801, 'Planks', 10, 100, 0, NULL);

-- Goods that sold this January and the one before: fractions of units, a kit and its parts, a credit note, one that is no
-- longer sold, one given away, one without any movement; of three warehouses one is closed.
INSERT INTO Category VALUES (1, 'Hardware');
INSERT INTO Category_Sub VALUES (1, 1, 'Fittings');
INSERT INTO Warehouse VALUES (1, 'M', 'Main', 0), (2, 'Q', 'Quebec City', NULL), (3, 'X', 'Closed', 1);
INSERT INTO Item (InItemId, ItemId, Descr1, IsKit, ExCategoryId, ExSubCategoryId) VALUES
  (1, 'HNG-2', 'Hinge of brass with a name that is long enough to wrap', 0, 1, 1), (2, 'KIT-1', 'Hinges and screws', 1, 1, NULL),
  (3, 'OLD-9', 'Lantern', 0, NULL, NULL), (4, 'FREE', 'Given away', 0, NULL, NULL), (5, 'LOST', 'Never counted', 0, NULL, NULL);
INSERT INTO ItemComponent VALUES (2, 1, 2);
INSERT INTO InvenDet VALUES
  (1, 1, '2022-12-01', 'PUR', NULL, 100, 250, 100, 2.5, 2.5, 1, 1), (2, 1, '2023-06-01', 'PUR', NULL, 50, 150, 50, 3, 3.25, 2, 2),
  (3, 3, '2022-12-01', 'PUR', NULL, 5, 100, 5, 20, 20, 1, NULL), (4, 4, '2022-12-01', 'PUR', NULL, 5, 5, 5, 1, 1, 1, 1),
  (5, 1, '2024-01-20', 'PUR', NULL, 10, 40, 110, 3.125, 4, 1, 2), (6, 1, '2024-02-10', 'PUR', NULL, 10, 90, 120, 9, 9, 1, 1);
INSERT INTO InvoiHdr (InInvoiId, InvoiId, InvoiType, InvoiDate, ExCustId, ExCurrencyId, ExchangeRate, TotAmnt, RecAmnt) VALUES
  (121, 'Y1', 2, '2023-01-12', NULL, 1, 1, 295, 295), (122, 'Y2', 3, '2023-01-20', NULL, 1, 1, 0, 0);
INSERT INTO InvoiDet (InInvoiDetId, ExInvoiId, ExItemId, Qty, QtyScrap, BaseRowTotal, IsKit, ExKitInvoiDetId, ExWarehouseId) VALUES
  (121, 121, 1, 12, NULL, 95, 0, NULL, 1), (122, 121, 3, 4, NULL, 200, 0, NULL, 1), (123, 122, 1, 2, 1, 8, 0, NULL, 1),
  (124, 101, 1, 7.5, NULL, 60, 0, NULL, 1), (125, 101, 2, 2, NULL, 45.5, 1, NULL, 1), (126, 101, 1, 4, NULL, 0, 0, 125, 1),
  (127, 104, 1, 5, NULL, 100, 0, NULL, 2), (128, 103, 1, 2, NULL, 20, 0, NULL, 1), (129, 102, 4, 1, NULL, 0, 0, NULL, 1),
  (130, 102, 5, 1, NULL, 40, 0, NULL, 1);

-- Lines as documents print them: a discount with scrap, a kit that shows its parts, one that hides them (pins print in
-- none other there), a return with a discount, no item, an item that is gone, no quantity; and parts used up in an assembly.
INSERT INTO Item (InItemId, ItemId, Descr1, IsKit, ComputeKitOption, AllowKitModification) VALUES
  (11, 'BRK-11', 'Bracket', 0, 2, 0), (12, 'PIN-12', 'Pin', 0, 0, 0), (13, 'SET-13', 'Brackets and pins', 1, NULL, NULL);
INSERT INTO InvoiDet (InInvoiDetId, ExInvoiId, ExItemId, Descr, Qty, QtyScrap, UnitPrice, DiscPercent, BaseRowTotal,
                      ExKitInvoiDetId, ExWarehouseId, ExSegmentId) VALUES
  (131, 101, 11, 'Brackets', 10, 1, 4, 12.5, 31.5, NULL, 1, 1), (132, 104, 13, 'Set', 2, NULL, 15.005, NULL, 30.01, NULL, 1, 2),
  (133, 104, 11, 'Bracket of the set', 2, NULL, 0, NULL, 0, 132, 1, 2), (134, 104, 12, 'Pin of the set', 4, NULL, 0, NULL, 0, 132, 1, 2),
  (135, 101, 12, 'Pin of a closed kit', 2, NULL, 9, NULL, 0, 125, 1, 1), (136, 103, 11, 'Returned', 3, 1, 4, 10, 7.2, NULL, 1, NULL),
  (137, 102, NULL, 'Delivery', 1, NULL, 5, NULL, 5, NULL, NULL, NULL), (138, 102, 11, 'None', 0, NULL, 4, NULL, 2.5, NULL, 1, NULL),
  (139, 101, 77, 'An item that is gone', 1, NULL, 1234567.891, NULL, 1234567.89, NULL, 1, 1);
INSERT INTO AssemblyHdr VALUES (701, 'A-701', '2024-01-10', 13, 2, 1);
INSERT INTO AssemblyDet VALUES (1, 701, 11, 4, 2.5, 1, 2), (2, 701, 12, 1.5, 0.3333, 1, NULL);
