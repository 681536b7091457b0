-- The schema of a company file.
--
-- Declared types tell the kind of a value and give SQLite the affinity: MONEY REAL is an amount,
-- DATE TEXT exactly YYYY-MM-DD, TIME TEXT HH:MM:SS, BOOLEAN INT true when not zero. Keys of
-- people's making (codes, numbers, user and register keys) are text under the collation QUILLO.
-- In... is a table's own key, Ex...Id the key of another table.
--
-- Report texts name some columns without their table. A column must therefore not be repeated on
-- a table that is joined beside the one it belongs to: no ExchangeRate on Cust or WorldCurrency,
-- no TrxSerNo or ExCurrencyId on both PmtHdr and PmtDet, no ExSegmentId on Item, Category or
-- Warehouse, no SeqNo outside GLDet.
--
-- Document keys (InInvoiId, InPmtId, InDepID, InTaxTrxID, InPurcId, InTrxPayId, AssemblyHdr.Id)
-- are best drawn from one sequence: GLDet.ExSrcKeyVal is joined to a document by key alone.

PRAGMA user_version = 1;

-- ---------------------------------------------------------------- reference data

-- Currencies of the world that the company uses.
CREATE TABLE WorldCurrency (
  InCurrencyId INTEGER PRIMARY KEY,
  CurrencyCode TEXT COLLATE QUILLO,
  Descr        TEXT COLLATE QUILLO
);

-- Languages of correspondence; Cust.NameLang points here.
CREATE TABLE KorvaLanguages (
  ID          INTEGER PRIMARY KEY,
  DisplayName TEXT COLLATE QUILLO
);

-- Countries of addresses.
CREATE TABLE Country (
  InCountryId INTEGER PRIMARY KEY,
  CountryCode TEXT COLLATE QUILLO,
  CountryName TEXT COLLATE QUILLO
);

-- Document kinds: 1 invoice, 2 cash sale, 3 credit note, 4 interest charge, 50 quote, 51 order.
CREATE TABLE InvoiType (
  ID          INTEGER PRIMARY KEY,
  Description TEXT COLLATE QUILLO
);

-- Payment methods.
CREATE TABLE PmtMeth (
  InPmtMethId INTEGER PRIMARY KEY,
  PmtMeth     TEXT COLLATE QUILLO
);

-- Payment terms. TermMode 1: due Due days after the document; 4: on day Due of the next month, of the
-- month after it for a document after day DueNxtMonth; 2 and 3: by PaymentSchedule (dates; days).
CREATE TABLE Term (
  InTermId    INTEGER PRIMARY KEY,
  TermId      TEXT COLLATE QUILLO,
  Descr       TEXT COLLATE QUILLO,
  TermMode    INTEGER,
  Due         INTEGER,
  DiscPercent REAL,
  DiscDelay   INTEGER,
  DueNxtMonth INTEGER
);

-- Tax groups of customers and lines.
CREATE TABLE TaxGroup (
  InTaxGroupId  INTEGER PRIMARY KEY,
  TaxGroupId    TEXT COLLATE QUILLO,
  TaxGroupDescr TEXT COLLATE QUILLO
);

-- Price levels of customers.
CREATE TABLE PriceLevel (
  InPriceLevelId  INTEGER PRIMARY KEY,
  PriceLevelId    TEXT COLLATE QUILLO,
  PriceLevelDescr TEXT COLLATE QUILLO
);

-- ---------------------------------------------------------------- ledger accounts and projects

-- Chart of accounts; ChqAcct marks the cash accounts (bank, drawers, undeposited receipts).
CREATE TABLE GLAcct (
  InGLAcctId INTEGER PRIMARY KEY,
  GLAcctId   TEXT COLLATE QUILLO,
  Descr      TEXT COLLATE QUILLO,
  ChqAcct    BOOLEAN INT
);

-- Projects with their estimates; the code "~Inconnu~" takes lines without a known project.
CREATE TABLE ProjInfo (
  InProjId INTEGER PRIMARY KEY,
  ProjId   TEXT COLLATE QUILLO,
  Descr    TEXT COLLATE QUILLO,
  BegDate  DATE TEXT CHECK (BegDate IS date(BegDate, '+0 days')),
  EndDate  DATE TEXT CHECK (EndDate IS date(EndDate, '+0 days')),
  EstSales MONEY REAL,
  EstPurch MONEY REAL,
  EstHours REAL,
  Inactive BOOLEAN INT
);

-- ---------------------------------------------------------------- people

-- Customers. ExGLAcctId is the receivables account; a NULL currency is the home currency.
CREATE TABLE Cust (
  InCustId       INTEGER PRIMARY KEY,
  CustId         TEXT COLLATE QUILLO,
  Name           TEXT COLLATE QUILLO,
  Contact        TEXT COLLATE QUILLO,
  Tel1           TEXT COLLATE QUILLO,
  TelExt1        TEXT COLLATE QUILLO,
  Tel2           TEXT COLLATE QUILLO,
  TelExt2        TEXT COLLATE QUILLO,
  Fax            TEXT COLLATE QUILLO,
  Web            TEXT COLLATE QUILLO,
  Email          TEXT COLLATE QUILLO,
  NameLang       INTEGER REFERENCES KorvaLanguages (ID),
  SalesPerson    TEXT COLLATE QUILLO,
  ExTermId       INTEGER REFERENCES Term (InTermId),
  ExTaxGroupId   INTEGER REFERENCES TaxGroup (InTaxGroupId),
  ExGLAcctId     INTEGER REFERENCES GLAcct (InGLAcctId),
  ExPriceLevelId INTEGER REFERENCES PriceLevel (InPriceLevelId),
  ExCurrencyId   INTEGER REFERENCES WorldCurrency (InCurrencyId),
  CreditLim      MONEY REAL,
  CustInactive   BOOLEAN INT
);

-- Addresses. AddrKind 0 is the postal address, 1 a shipping address; without ExCustId the company's.
CREATE TABLE Addr (
  InAddrId    INTEGER PRIMARY KEY,
  ExCustId    INTEGER REFERENCES Cust (InCustId),
  AddrKind    INTEGER,
  AddrName    TEXT COLLATE QUILLO,
  AddrLine1   TEXT COLLATE QUILLO,
  AddrLine2   TEXT COLLATE QUILLO,
  City        TEXT COLLATE QUILLO,
  Province    TEXT COLLATE QUILLO,
  PostalCode  TEXT COLLATE QUILLO,
  ExCountryId INTEGER REFERENCES Country (InCountryId)
);

-- Suppliers.
CREATE TABLE Supp (
  InSuppId     INTEGER PRIMARY KEY,
  SuppId       TEXT COLLATE QUILLO,
  Name         TEXT COLLATE QUILLO,
  Contact      TEXT COLLATE QUILLO,
  Tel1         TEXT COLLATE QUILLO,
  SuppInactive BOOLEAN INT
);

-- Employees; documents name their salesperson by first name, blank, last name. SalesComm is a percent.
CREATE TABLE Empl (
  InEmplId     INTEGER PRIMARY KEY,
  EmplId       TEXT COLLATE QUILLO,
  FirstName    TEXT COLLATE QUILLO,
  LastName     TEXT COLLATE QUILLO,
  SalesComm    REAL,
  EmplInactive BOOLEAN INT
);

-- ---------------------------------------------------------------- items and stock

-- Item categories.
CREATE TABLE Category (
  InCategoryId INTEGER PRIMARY KEY,
  Descr        TEXT COLLATE QUILLO
);

-- Item subcategories.
CREATE TABLE Category_Sub (
  InSubCategoryId INTEGER PRIMARY KEY,
  ExCategoryId    INTEGER REFERENCES Category (InCategoryId),
  Descr           TEXT COLLATE QUILLO
);

-- Warehouses; an inactive one keeps its past movements.
CREATE TABLE Warehouse (
  InWarehouseId     INTEGER PRIMARY KEY,
  WarehouseId       TEXT COLLATE QUILLO,
  Name              TEXT COLLATE QUILLO,
  WarehouseInactive BOOLEAN INT
);

-- Items. Servc: a service without stock. IsKit: sold as a set whose components leave the stock;
-- IsAssembly: made in the house by assemblies. ComputeKitOption 0 and 1 print the kit's own line,
-- 2 its components; AllowKitModification prints the components too.
CREATE TABLE Item (
  InItemId             INTEGER PRIMARY KEY,
  ItemId               TEXT COLLATE QUILLO,
  Descr1               TEXT COLLATE QUILLO,
  ExCategoryId         INTEGER REFERENCES Category (InCategoryId),
  ExSubCategoryId      INTEGER REFERENCES Category_Sub (InSubCategoryId),
  SalePrice            MONEY REAL,
  Servc                BOOLEAN INT,
  IsKit                BOOLEAN INT,
  IsAssembly           BOOLEAN INT,
  ComputeKitOption     INTEGER,
  AllowKitModification BOOLEAN INT,
  ItemInactive         BOOLEAN INT
);

-- Stock movements. Qty and CostAmnt are signed (in positive); RunningAvgCost and RunningLastCost
-- are the item's unit costs, RunningQty the count in the warehouse, all after the movement.
-- Source: INV, ASB, PUR, or ADJ for counts, transfers and the opening stock.
CREATE TABLE InvenDet (
  InTrxId         INTEGER PRIMARY KEY,
  ExItemId        INTEGER REFERENCES Item (InItemId),
  DetDate         DATE TEXT CHECK (DetDate IS date(DetDate, '+0 days')),
  Source          TEXT COLLATE QUILLO,
  ExSrcKeyVal     INTEGER,
  Qty             REAL,
  CostAmnt        MONEY REAL,
  RunningQty      REAL,
  RunningAvgCost  MONEY REAL,
  RunningLastCost MONEY REAL,
  ExWarehouseId   INTEGER REFERENCES Warehouse (InWarehouseId),
  ExSegmentId     INTEGER REFERENCES Segment (InSegmentId)
);

-- Assemblies: Qty units of a product made from the components in AssemblyDet.
CREATE TABLE AssemblyHdr (
  Id            INTEGER PRIMARY KEY,
  AssemblyNo    TEXT COLLATE QUILLO,
  AssemblyDate  DATE TEXT CHECK (AssemblyDate IS date(AssemblyDate, '+0 days')),
  ExItemId      INTEGER REFERENCES Item (InItemId),
  Qty           REAL,
  ExWarehouseId INTEGER REFERENCES Warehouse (InWarehouseId)
);

-- Components used up by an assembly.
CREATE TABLE AssemblyDet (
  InAssemblyDetId INTEGER PRIMARY KEY,
  ExId            INTEGER REFERENCES AssemblyHdr (Id),
  ExItemId        INTEGER REFERENCES Item (InItemId),
  Qty             REAL,
  UnitCost        MONEY REAL,
  ExWarehouseId   INTEGER REFERENCES Warehouse (InWarehouseId),
  ExSegmentId     INTEGER REFERENCES Segment (InSegmentId)
);

-- ---------------------------------------------------------------- sales documents

-- Documents of all kinds. DetAmnt is net of DiscTotAmnt; TotAmnt = DetAmnt + ShipAmnt + TaxAmnt, in
-- the document's currency; a credit note's header is negative. RecAmnt was received on the spot.
CREATE TABLE InvoiHdr (
  InInvoiId         INTEGER PRIMARY KEY,
  InvoiId           TEXT COLLATE QUILLO,
  InvoiType         INTEGER REFERENCES InvoiType (ID),
  InvoiDate         DATE TEXT CHECK (InvoiDate IS date(InvoiDate, '+0 days')),
  InvoiTime         TIME TEXT,
  ShipDate          DATE TEXT CHECK (ShipDate IS date(ShipDate, '+0 days')),
  RecDate           DATE TEXT CHECK (RecDate IS date(RecDate, '+0 days')),
  DueDate           DATE TEXT CHECK (DueDate IS date(DueDate, '+0 days')),
  ExCustId          INTEGER REFERENCES Cust (InCustId),
  ExTermId          INTEGER REFERENCES Term (InTermId),
  ExCurrencyId      INTEGER REFERENCES WorldCurrency (InCurrencyId),
  ExchangeRate      REAL,
  DetAmnt           MONEY REAL,
  DiscTotAmnt       MONEY REAL,
  ShipAmnt          MONEY REAL,
  TaxAmnt           MONEY REAL,
  TotAmnt           MONEY REAL,
  RecAmnt           MONEY REAL,
  RecCheqNo         TEXT COLLATE QUILLO,
  ExPmtMethId       INTEGER REFERENCES PmtMeth (InPmtMethId),
  SalesPerson       TEXT COLLATE QUILLO,
  CommissionPercent REAL,
  CommissionAmount  MONEY REAL,
  CashierSale       BOOLEAN INT,
  ExUsrKey          TEXT COLLATE QUILLO,
  TrxSerNo          TEXT COLLATE QUILLO,
  ToApprove         BOOLEAN INT,
  ExSegmentId       INTEGER REFERENCES Segment (InSegmentId)
);

-- Document lines. Amounts are positive on credit notes; QtyScrap are returned units not put back to
-- stock. Components of a kit carry the kit line's key in ExKitInvoiDetId and no amount.
CREATE TABLE InvoiDet (
  InInvoiDetId    INTEGER PRIMARY KEY,
  ExInvoiId       INTEGER REFERENCES InvoiHdr (InInvoiId),
  ExItemId        INTEGER REFERENCES Item (InItemId),
  Descr           TEXT COLLATE QUILLO,
  Qty             REAL,
  QtyScrap        REAL,
  UnitPrice       MONEY REAL,
  DiscPercent     REAL,
  BaseRowTotal    MONEY REAL,
  Servc           BOOLEAN INT,
  IsKit           BOOLEAN INT,
  ExKitInvoiDetId INTEGER REFERENCES InvoiDet (InInvoiDetId),
  TaxIncluded     BOOLEAN INT,
  ExTaxGroupId    INTEGER REFERENCES TaxGroup (InTaxGroupId),
  ExSaleAcctId    INTEGER REFERENCES GLAcct (InGLAcctId),
  ExWarehouseId   INTEGER REFERENCES Warehouse (InWarehouseId),
  ExSegmentId     INTEGER REFERENCES Segment (InSegmentId)
);

-- Receipts of a cashier document by method and currency; negative rows are change given back.
CREATE TABLE InvoiRecDet (
  InInvoiRecDetId INTEGER PRIMARY KEY,
  ExInvoiId       INTEGER REFERENCES InvoiHdr (InInvoiId),
  ExPmtMethId     INTEGER REFERENCES PmtMeth (InPmtMethId),
  ExCurrencyId    INTEGER REFERENCES WorldCurrency (InCurrencyId),
  ExchangeRate    REAL,
  RecAmnt         MONEY REAL,
  RecCheqNo       TEXT COLLATE QUILLO
);

-- Cash taken out of a drawer for deposit, by operator and register.
CREATE TABLE InvoiCashDeposit (
  InInvoiCashDepositId INTEGER PRIMARY KEY,
  ICDOperatorKey       TEXT COLLATE QUILLO,
  ICDCashReg           TEXT COLLATE QUILLO,
  ICDDate              DATE TEXT CHECK (ICDDate IS date(ICDDate, '+0 days')),
  ICDTime              TIME TEXT,
  ICDAmnt              MONEY REAL,
  ExCurrencyId         INTEGER REFERENCES WorldCurrency (InCurrencyId),
  ExchangeRate         REAL
);

-- ---------------------------------------------------------------- payments and deposits

-- Customer payments; PmtTotAmnt is what came in, without the discounts granted in DiscTotAmnt.
-- PaymentCreditApplication not zero: no money, a credit note (or an overpaid document, or money on
-- account) of that key is set against invoices.
CREATE TABLE PmtHdr (
  InPmtId                  INTEGER PRIMARY KEY,
  PmtDate                  DATE TEXT CHECK (PmtDate IS date(PmtDate, '+0 days')),
  ChqNo                    TEXT COLLATE QUILLO,
  ExCustId                 INTEGER REFERENCES Cust (InCustId),
  ExPmtMethId              INTEGER REFERENCES PmtMeth (InPmtMethId),
  ExCurrencyId             INTEGER REFERENCES WorldCurrency (InCurrencyId),
  ExchangeRate             REAL,
  PmtTotAmnt               MONEY REAL,
  DiscTotAmnt              MONEY REAL,
  PaymentCreditApplication INTEGER,
  ExSegmentId              INTEGER REFERENCES Segment (InSegmentId)
);

-- What a payment settles: each document falls by PmtAmnt + PmtDisc, in its own currency. A row without
-- ExInvoiId is money on account; its use later is a negative row of a payment without money that
-- names this one in PaymentCreditApplication.
-- CashierPayment: taken at a register (TrxSerNo) by a user (ExUsrKey).
CREATE TABLE PmtDet (
  InPmtDetId     INTEGER PRIMARY KEY,
  ExPmtId        INTEGER REFERENCES PmtHdr (InPmtId),
  ExInvoiId      INTEGER REFERENCES InvoiHdr (InInvoiId),
  PmtAmnt        MONEY REAL,
  PmtDisc        MONEY REAL,
  CashierPayment BOOLEAN INT,
  ExUsrKey       TEXT COLLATE QUILLO,
  TrxSerNo       TEXT COLLATE QUILLO
);

-- Bank deposits.
CREATE TABLE DepHdr (
  InDepID      INTEGER PRIMARY KEY,
  DepNo        TEXT COLLATE QUILLO,
  DepDate      DATE TEXT CHECK (DepDate IS date(DepDate, '+0 days')),
  ExCurrencyId INTEGER REFERENCES WorldCurrency (InCurrencyId),
  ExchangeRate REAL
);

-- What was deposited. RecExSrcKeyVal is the document that recorded the receipt before; without it
-- the deposit itself is the receipt (rent, refunds and the like).
CREATE TABLE DepDet (
  InDepDetId     INTEGER PRIMARY KEY,
  ExDepID        INTEGER REFERENCES DepHdr (InDepID),
  ExPmtMethId    INTEGER REFERENCES PmtMeth (InPmtMethId),
  RecAmnt        MONEY REAL,
  RecExSrcKeyVal INTEGER
);

-- Sales tax transactions with the governments: refunds positive, remittances negative.
CREATE TABLE TaxTrxHdr (
  InTaxTrxID  INTEGER PRIMARY KEY,
  TaxTrxNo    TEXT COLLATE QUILLO,
  TaxTrxDate  DATE TEXT CHECK (TaxTrxDate IS date(TaxTrxDate, '+0 days')),
  ExPmtMethId INTEGER REFERENCES PmtMeth (InPmtMethId)
);

-- Amounts of a tax transaction by tax account.
CREATE TABLE TaxTrxDet (
  InTaxTrxDetID INTEGER PRIMARY KEY,
  ExTaxTrxID    INTEGER REFERENCES TaxTrxHdr (InTaxTrxID),
  ExAcctId      INTEGER REFERENCES GLAcct (InGLAcctId),
  Amnt          MONEY REAL
);

-- Home-currency corrections of one customer's balance (document kind 101).
CREATE TABLE CustHomeAdjustment (
  InAdjustId  INTEGER PRIMARY KEY,
  AdjustId    TEXT COLLATE QUILLO,
  AdjustDate  DATE TEXT CHECK (AdjustDate IS date(AdjustDate, '+0 days')),
  ExCustId    INTEGER REFERENCES Cust (InCustId),
  AdjustAmnt  MONEY REAL,
  ExSegmentId INTEGER REFERENCES Segment (InSegmentId)
);

-- ---------------------------------------------------------------- purchases and payroll

-- Supplier documents: PurcType 1 purchase of goods, 2 expense.
CREATE TABLE PurcHdr (
  InPurcId INTEGER PRIMARY KEY,
  PurcId   TEXT COLLATE QUILLO,
  PurcType INTEGER,
  PurcDate DATE TEXT CHECK (PurcDate IS date(PurcDate, '+0 days')),
  ExSuppId INTEGER REFERENCES Supp (InSuppId),
  TotAmnt  MONEY REAL
);

-- Pay slips.
CREATE TABLE TrxPay (
  InTrxPayId INTEGER PRIMARY KEY,
  TrxPayNo   TEXT COLLATE QUILLO,
  PayDate    DATE TEXT CHECK (PayDate IS date(PayDate, '+0 days')),
  ExEmplId   INTEGER REFERENCES Empl (InEmplId),
  Hours      REAL,
  GrossAmnt  MONEY REAL,
  NetAmnt    MONEY REAL,
  Canceled   BOOLEAN INT
);

-- ---------------------------------------------------------------- general ledger

-- Ledger lines; the lines of one SeqNo are one transaction and sum to zero. DetAmnt is in home
-- currency, debit positive; ForeignAmnt the same in ExCurrencyId, 0 for the home currency.
-- Source: INV, ADM (interest charges), PMT, TAX, DEP, PUR, EXP, PAY, ASB, CHQ (cheques to
-- suppliers), GEN (general journal). ARAPAdjustmentEntry marks an entry on a receivables account
-- that belongs to no document.
CREATE TABLE GLDet (
  InGLDetId           INTEGER PRIMARY KEY,
  SeqNo               INTEGER,
  DetDate             DATE TEXT CHECK (DetDate IS date(DetDate, '+0 days')),
  Source              TEXT COLLATE QUILLO,
  ExSrcKeyVal         INTEGER,
  DetRef              TEXT COLLATE QUILLO,
  DetDesc             TEXT COLLATE QUILLO,
  ExAcctId            INTEGER REFERENCES GLAcct (InGLAcctId),
  DetAmnt             MONEY REAL,
  ForeignAmnt         MONEY REAL,
  ExCurrencyId        INTEGER REFERENCES WorldCurrency (InCurrencyId),
  ExchangeRate        REAL,
  ExProjId            INTEGER,
  ExSegmentId         INTEGER REFERENCES Segment (InSegmentId),
  ARAPAdjustmentEntry BOOLEAN INT
);

-- ================================================================ the host's own tables

-- Facts of the company by name; the file's version is PRAGMA user_version.
CREATE TABLE CompanyFact (
  Name  TEXT PRIMARY KEY,
  Value TEXT
);

-- Numbered settings; 104 customer codes, 111 project codes, 113 tax groups by code, 114 terms by
-- code, 134 statistics bring the stock up to date.
CREATE TABLE Setting (
  Number INTEGER PRIMARY KEY,
  Value  TEXT
);

-- Named parameters; a missing one takes the default that the asker gives.
CREATE TABLE Parameter (
  Section TEXT,
  Name    TEXT,
  Value   TEXT,
  PRIMARY KEY (Section, Name)
);

-- Texts that this company words otherwise than the language files do.
CREATE TABLE TextOverride (
  Language TEXT,
  Id       INTEGER,
  Text     TEXT,
  PRIMARY KEY (Language, Id)
);

-- Translations of words stored in data: document kinds, names of languages.
CREATE TABLE Dictionary (
  Word        TEXT COLLATE QUILLO,
  Language    TEXT,
  Translation TEXT COLLATE QUILLO,
  PRIMARY KEY (Word, Language)
);

-- Segments of the business; a NULL ExSegmentId elsewhere is a row without segment.
CREATE TABLE Segment (
  InSegmentId INTEGER PRIMARY KEY,
  SegmentId   TEXT COLLATE QUILLO,
  Descr       TEXT COLLATE QUILLO
);

-- Groups of ledger accounts by currency: CustGLAR the receivables, StockGL the stock's value.
CREATE TABLE AccountGroup (
  Code         TEXT,
  ExCurrencyId INTEGER REFERENCES WorldCurrency (InCurrencyId),
  ExGLAcctId   INTEGER REFERENCES GLAcct (InGLAcctId),
  PRIMARY KEY (Code, ExCurrencyId, ExGLAcctId)
);

-- Rates in home currency for one unit; a day without row takes the last one before it.
CREATE TABLE ExchangeRateByDay (
  ExCurrencyId INTEGER REFERENCES WorldCurrency (InCurrencyId),
  RateDate     DATE TEXT CHECK (RateDate IS date(RateDate, '+0 days')),
  Rate         REAL,
  PRIMARY KEY (ExCurrencyId, RateDate)
) WITHOUT ROWID;

-- Fiscal years, by printable name.
CREATE TABLE FiscalYear (
  InFiscalYearId INTEGER PRIMARY KEY,
  YearName       TEXT COLLATE QUILLO,
  StartDate      DATE TEXT CHECK (StartDate IS date(StartDate, '+0 days')),
  EndDate        DATE TEXT CHECK (EndDate IS date(EndDate, '+0 days'))
);

-- Periods of a fiscal year, numbered from 1.
CREATE TABLE FiscalPeriod (
  ExFiscalYearId INTEGER REFERENCES FiscalYear (InFiscalYearId),
  PeriodNo       INTEGER,
  StartDate      DATE TEXT CHECK (StartDate IS date(StartDate, '+0 days')),
  EndDate        DATE TEXT CHECK (EndDate IS date(EndDate, '+0 days')),
  PRIMARY KEY (ExFiscalYearId, PeriodNo)
);

-- Instalments of terms: Percent of the total on DueDate (mode 2) or Days after the document (mode 3).
CREATE TABLE PaymentSchedule (
  ExTermId INTEGER REFERENCES Term (InTermId),
  Position INTEGER,
  Percent  REAL,
  DueDate  DATE TEXT CHECK (DueDate IS date(DueDate, '+0 days')),
  Days     INTEGER,
  PRIMARY KEY (ExTermId, Position)
);

-- Operators of the cash registers; UsrKey is what documents carry in ExUsrKey.
CREATE TABLE CashierUser (
  UsrKey       TEXT COLLATE QUILLO PRIMARY KEY,
  UserName     TEXT COLLATE QUILLO,
  UserInactive BOOLEAN INT
);

-- Cash registers by serial number; TrxSerNo is what documents carry.
CREATE TABLE CashRegister (
  TrxSerNo      TEXT COLLATE QUILLO PRIMARY KEY,
  Descr         TEXT COLLATE QUILLO,
  ExWarehouseId INTEGER REFERENCES Warehouse (InWarehouseId)
);

-- Parameters of the cashier by section; section 3: CashPmtMethId, the key of the cash method;
-- OpeningAmount, what a drawer holds in the morning; OpeningAmount.USD, the same in that currency.
CREATE TABLE CashierParameter (
  Section INTEGER,
  Name    TEXT,
  Value   TEXT,
  PRIMARY KEY (Section, Name)
);

-- Standard unit costs by first day, for items without a movement up to a date.
CREATE TABLE ItemCost (
  ExItemId INTEGER REFERENCES Item (InItemId),
  FromDate DATE TEXT CHECK (FromDate IS date(FromDate, '+0 days')),
  UnitCost MONEY REAL,
  PRIMARY KEY (ExItemId, FromDate)
);

-- What a kit or an assembled item is made of, for one unit.
CREATE TABLE ItemComponent (
  ExItemId          INTEGER REFERENCES Item (InItemId),
  ExComponentItemId INTEGER REFERENCES Item (InItemId),
  Qty               REAL,
  PRIMARY KEY (ExItemId, ExComponentItemId)
);

-- Fields that a company adds to a table.
CREATE TABLE CustomField (
  InFieldId INTEGER PRIMARY KEY,
  ForTable  TEXT,
  Caption   TEXT COLLATE QUILLO,
  Position  INTEGER
);

-- Values of added fields by record.
CREATE TABLE CustomFieldValue (
  ExFieldId INTEGER REFERENCES CustomField (InFieldId),
  RecordId  INTEGER,
  Value     TEXT COLLATE QUILLO,
  PRIMARY KEY (ExFieldId, RecordId)
);

-- ================================================================ views

-- Transactions that brought money in: one row a transaction with a line on a cash account.
CREATE VIEW CashReceiptSequences_View AS
  SELECT DISTINCT GLDet.SeqNo
  FROM GLAcct INNER JOIN GLDet ON GLDet.ExAcctId = GLAcct.InGLAcctId
  WHERE GLAcct.ChqAcct <> 0 AND GLDet.Source IN ('INV', 'PMT', 'TAX', 'DEP');

-- The cash receipts journal: all ledger lines of those transactions.
CREATE VIEW CashReceiptJournal_View AS
  SELECT GLDet.InGLDetId, GLDet.SeqNo, GLDet.DetDate, GLDet.Source, GLDet.ExSrcKeyVal,
         GLDet.DetRef, GLDet.DetDesc, GLDet.ExAcctId, GLDet.DetAmnt, GLDet.ForeignAmnt,
         GLDet.ExCurrencyId, GLDet.ExchangeRate, GLDet.ExProjId, GLDet.ExSegmentId
  FROM GLDet
  WHERE GLDet.SeqNo IN (SELECT SeqNo FROM CashReceiptSequences_View);

-- Discounts granted by payments, one row a document settled, positive, in the payment's currency.
-- DocOrderId is the document that the discount belongs to.
CREATE VIEW CustAgingPmtsDiscounts_View AS
  SELECT PmtHdr.ExCustId, PmtDet.ExInvoiId AS DocOrderId, PmtDet.ExPmtId, PmtHdr.ChqNo,
         PmtHdr.PmtDate, PmtDet.PmtDisc AS DetAmnt, PmtHdr.ExchangeRate
  FROM PmtHdr INNER JOIN PmtDet ON PmtDet.ExPmtId = PmtHdr.InPmtId
  WHERE PmtDet.PmtDisc <> 0;

-- Every document of the receivables with what is open on it, 0 when settled, in its own currency.
CREATE VIEW InvoiOutstandingAll_View AS
  SELECT InvoiHdr.InInvoiId,
         ROUND(COALESCE(InvoiHdr.TotAmnt, 0) - COALESCE(InvoiHdr.RecAmnt, 0)
               - COALESCE((SELECT SUM(COALESCE(PmtDet.PmtAmnt, 0) + COALESCE(PmtDet.PmtDisc, 0))
                           FROM PmtDet WHERE PmtDet.ExInvoiId = InvoiHdr.InInvoiId), 0), 2) AS Outstanding
  FROM InvoiHdr
  WHERE InvoiHdr.InvoiType IN (1, 2, 3, 4);

-- Sales by invoice line in home currency, credit notes negative. A kit counts by its own line.
CREATE VIEW ItemSoldAmounts_View AS
  SELECT InvoiDet.ExItemId AS InItemId, InvoiDet.ExWarehouseId AS ExWarehouseID,
         InvoiDet.ExSegmentId, InvoiHdr.InvoiDate, InvoiHdr.InvoiType,
         CASE WHEN InvoiHdr.InvoiType = 3 THEN -1 ELSE 1 END
           * ROUND(COALESCE(InvoiDet.BaseRowTotal, 0) * COALESCE(InvoiHdr.ExchangeRate, 1), 2) AS TotalSales
  FROM InvoiHdr INNER JOIN InvoiDet ON InvoiDet.ExInvoiId = InvoiHdr.InInvoiId
  WHERE InvoiHdr.InvoiType IN (1, 2, 3, 4) AND InvoiDet.ExItemId IS NOT NULL
    AND InvoiDet.ExKitInvoiDetId IS NULL;

-- Units sold by invoice line, net of scrap, credit notes negative. A kit counts by its own line.
CREATE VIEW ItemSoldUnits_View AS
  SELECT InvoiDet.ExItemId AS InItemId, InvoiDet.ExWarehouseId AS ExWarehouseID,
         InvoiDet.ExSegmentId, InvoiHdr.InvoiDate, InvoiHdr.InvoiType,
         CASE WHEN InvoiHdr.InvoiType = 3 THEN -1 ELSE 1 END
           * (COALESCE(InvoiDet.Qty, 0) - COALESCE(InvoiDet.QtyScrap, 0)) AS TotalUnitsSold
  FROM InvoiHdr INNER JOIN InvoiDet ON InvoiDet.ExInvoiId = InvoiHdr.InInvoiId
  WHERE InvoiHdr.InvoiType IN (1, 2, 3, 4) AND InvoiDet.ExItemId IS NOT NULL
    AND InvoiDet.ExKitInvoiDetId IS NULL;

-- What left the stock: TrxType 7, each document line of goods, kits and components alike;
-- TrxType 6, each component used by an assembly. IType is the document's kind.
CREATE VIEW ItemConsumedUnits_View AS
  SELECT InvoiHdr.InvoiDate AS TrxDate, 7 AS TrxType, InvoiHdr.InvoiId AS ID,
         InvoiHdr.InInvoiId AS ExSrcKeyVal, InvoiHdr.InvoiType AS IType,
         CASE WHEN InvoiHdr.InvoiType = 3 THEN -1 ELSE 1 END
           * (COALESCE(InvoiDet.Qty, 0) - COALESCE(InvoiDet.QtyScrap, 0)) AS Qty,
         InvoiDet.ExItemId AS InItemId, InvoiDet.ExWarehouseId, InvoiDet.ExSegmentId
  FROM InvoiHdr INNER JOIN InvoiDet ON InvoiDet.ExInvoiId = InvoiHdr.InInvoiId
       INNER JOIN Item ON Item.InItemId = InvoiDet.ExItemId
  WHERE InvoiHdr.InvoiType IN (1, 2, 3, 4) AND (Item.Servc = 0 OR Item.Servc IS NULL)
  UNION ALL
  SELECT AssemblyHdr.AssemblyDate, 6, AssemblyHdr.AssemblyNo, AssemblyHdr.Id, NULL,
         AssemblyDet.Qty, AssemblyDet.ExItemId, AssemblyDet.ExWarehouseId, AssemblyDet.ExSegmentId
  FROM AssemblyHdr INNER JOIN AssemblyDet ON AssemblyDet.ExId = AssemblyHdr.Id;

-- ================================================================ indexes

-- Lines carry their item in the key of their document: the consumption reports join by both, and
-- without it they take minutes where they need a second.

CREATE INDEX AddrByCust ON Addr (ExCustId, AddrKind);
CREATE INDEX InvoiHdrByDate ON InvoiHdr (InvoiDate);
CREATE INDEX InvoiHdrByType ON InvoiHdr (InvoiType, InvoiDate);
CREATE INDEX InvoiHdrByCust ON InvoiHdr (ExCustId, InvoiDate);
CREATE INDEX InvoiHdrByUser ON InvoiHdr (ExUsrKey, InvoiDate) WHERE CashierSale <> 0;
CREATE INDEX InvoiHdrByRegister ON InvoiHdr (TrxSerNo, InvoiDate) WHERE CashierSale <> 0;
CREATE INDEX InvoiDetByInvoi ON InvoiDet (ExInvoiId, ExItemId);
CREATE INDEX InvoiDetByItem ON InvoiDet (ExItemId, ExWarehouseId, ExInvoiId);
CREATE INDEX InvoiDetByKit ON InvoiDet (ExKitInvoiDetId) WHERE ExKitInvoiDetId IS NOT NULL;
CREATE INDEX InvoiRecDetByInvoi ON InvoiRecDet (ExInvoiId);
CREATE INDEX InvoiCashDepositByDate ON InvoiCashDeposit (ICDDate);
CREATE INDEX PmtHdrByDate ON PmtHdr (PmtDate);
CREATE INDEX PmtHdrByCust ON PmtHdr (ExCustId, PmtDate);
CREATE INDEX PmtDetByPmt ON PmtDet (ExPmtId);
CREATE INDEX PmtDetByInvoi ON PmtDet (ExInvoiId);
CREATE INDEX DepHdrByDate ON DepHdr (DepDate);
CREATE INDEX DepDetByDep ON DepDet (ExDepID);
CREATE INDEX TaxTrxDetByTrx ON TaxTrxDet (ExTaxTrxID);
CREATE INDEX GLDetByDate ON GLDet (DetDate);
CREATE INDEX GLDetBySeq ON GLDet (SeqNo);
CREATE INDEX GLDetBySource ON GLDet (ExSrcKeyVal);
CREATE INDEX GLDetByAcct ON GLDet (ExAcctId, DetDate);
CREATE INDEX GLDetByProj ON GLDet (ExProjId, DetDate) WHERE ExProjId <> 0;
CREATE INDEX InvenDetByItem ON InvenDet (ExItemId, DetDate, InTrxId);
CREATE INDEX InvenDetByPlace ON InvenDet (ExItemId, ExWarehouseId, DetDate);
CREATE INDEX InvenDetByDate ON InvenDet (DetDate);
CREATE INDEX InvenDetToUpdate ON InvenDet (DetDate)
  WHERE RunningQty IS NULL OR RunningAvgCost IS NULL OR RunningLastCost IS NULL;
CREATE INDEX AssemblyHdrByDate ON AssemblyHdr (AssemblyDate);
CREATE INDEX AssemblyDetByAssembly ON AssemblyDet (ExId, ExItemId);
CREATE INDEX AssemblyDetByItem ON AssemblyDet (ExItemId, ExId);
CREATE INDEX ItemComponentByComponent ON ItemComponent (ExComponentItemId);

-- ================================================================ what a new company starts with

INSERT INTO CompanyFact (Name, Value) VALUES
  ('Name', ''), ('Country', 'CA'), ('HomeCurrencyId', '1'), ('UsesForeignCurrency', '0'),
  ('DefaultWarehouseId', '0'), ('DatabaseKind', '0'), ('Language', 'en'), ('Locale', 'en_CA');
INSERT INTO WorldCurrency (InCurrencyId, CurrencyCode, Descr) VALUES (1, 'CAD', 'Canadian dollar');
INSERT INTO KorvaLanguages (ID, DisplayName) VALUES (1, 'English'), (2, 'French');
INSERT INTO InvoiType (ID, Description) VALUES
  (1, 'Invoice'), (2, 'Cash sale'), (3, 'Credit note'), (4, 'Interest charge'), (50, 'Quote'), (51, 'Order');
INSERT INTO Dictionary (Word, Language, Translation) VALUES
  ('Invoice', 'fr', 'Facture'), ('Cash sale', 'fr', 'Vente au comptant'),
  ('Credit note', 'fr', 'Note de crédit'), ('Interest charge', 'fr', 'Frais d''intérêt'),
  ('Quote', 'fr', 'Soumission'), ('Order', 'fr', 'Commande'),
  ('English', 'fr', 'Anglais'), ('French', 'fr', 'Français');
INSERT INTO Setting (Number, Value) VALUES (104, '1'), (111, '1'), (113, '1'), (114, '1'), (134, '1');
