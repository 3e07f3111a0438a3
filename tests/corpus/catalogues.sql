-- screen: TBankaiFrm, session: mnFin_Db
SELECT * FROM BD_BANKAI ORDER BY BNK_PAVAD
;;
-- screen: TBankaiDlg, session: mnFin_Db
-- param kodas = 70440
SELECT * FROM BD_BANKAI WHERE BNK_KODAS = :kodas
;;
-- screen: TBankaiFrm, session: mnFin_Db
select f_CheckUsed('BD_BANKAI', 'BNK_KODAS', '70440') from dummy
;;
-- screen: TBankaiDlg, session: mnFin_Db
-- param BNK_KODAS = 70440
-- param BNK_BNKKODAS = null
-- param BNK_PAVAD = 'Šiaulių bankas'
-- param BNK_RINK = 0.25
insert into BD_BANKAI (BNK_KODAS, BNK_BNKKODAS, BNK_PAVAD, BNK_RINK)
values (:BNK_KODAS, :BNK_BNKKODAS, :BNK_PAVAD, :BNK_RINK)
;;
-- screen: TBankaiDlg, session: mnFin_Db
-- param BNK_BNKKODAS = null
-- param BNK_PAVAD = 'Šiaulių bankas'
-- param BNK_RINK = 0.25
-- param OLD_BNK_KODAS = 70440
update BD_BANKAI set BNK_BNKKODAS = :BNK_BNKKODAS, BNK_PAVAD = :BNK_PAVAD, BNK_RINK = :BNK_RINK where BNK_KODAS = :OLD_BNK_KODAS
;;
-- screen: TBankaiFrm, session: mnFin_Db
-- param OLD_BNK_KODAS = 70440
delete from BD_BANKAI where BNK_KODAS = :OLD_BNK_KODAS
;;
-- screen: TFinListFrm, session: mnRavl
select * from bd_fin order by fin_dir
;;
-- screen: TFinListFrm, session: mnRavl
select f_CheckUsed('bd_fin', 'fin_id', '1') from dummy
;;
-- screen: TFinEdDlg, session: mnRavl
SELECT * FROM Bd_Savivaldybes ORDER BY Sav_Pavad
;;
-- screen: TFinListFrm, session: mnRavl
-- param fin_pavad = 'Spec. lėšos'
-- param fin_dir = 'sl'
-- param fin_org_pavad = 'Žolynų gimnazija'
-- param fin_adr = 'Žolynų g. 1'
-- param fin_i_kod = 190000000
-- param fin_pvm_kod = null
-- param fin_DRAUD_KOD = '123456'
-- param Fin_Savivaldybe = null
-- param Fin_RejNum = null
-- param fin_org_zenklas = null
-- param fin_rodyti = 1
insert into bd_fin (fin_pavad, fin_dir, fin_org_pavad, fin_adr, fin_i_kod, fin_pvm_kod, fin_DRAUD_KOD, Fin_Savivaldybe, Fin_RejNum, fin_org_zenklas, fin_rodyti)
values (:fin_pavad, :fin_dir, :fin_org_pavad, :fin_adr, :fin_i_kod, :fin_pvm_kod, :fin_DRAUD_KOD, :Fin_Savivaldybe, :Fin_RejNum, :fin_org_zenklas, :fin_rodyti)
;;
-- screen: TFinListFrm, session: mnRavl
-- param fin_pavad = 'Spec. lėšos'
-- param fin_dir = 'sl'
-- param fin_org_pavad = 'Žolynų gimnazija'
-- param fin_adr = 'Žolynų g. 1'
-- param fin_i_kod = 190000000
-- param fin_pvm_kod = null
-- param fin_DRAUD_KOD = '123456'
-- param Fin_Savivaldybe = null
-- param Fin_RejNum = null
-- param fin_org_zenklas = null
-- param fin_rodyti = 1
-- param OLD_fin_id = 1
update bd_fin set fin_pavad = :fin_pavad, fin_dir = :fin_dir, fin_org_pavad = :fin_org_pavad, fin_adr = :fin_adr, fin_i_kod = :fin_i_kod, fin_pvm_kod = :fin_pvm_kod, fin_DRAUD_KOD = :fin_DRAUD_KOD, Fin_Savivaldybe = :Fin_Savivaldybe, Fin_RejNum = :Fin_RejNum, fin_org_zenklas = :fin_org_zenklas, fin_rodyti = :fin_rodyti where fin_id = :OLD_fin_id
;;
-- screen: TFinListFrm, session: mnRavl
-- param OLD_fin_id = 1
delete from bd_fin where fin_id = :OLD_fin_id
;;
-- screen: TPareigFrm, session: mnFin_Db
select * from bd_prg
;;
-- screen: TPareigFrm, session: mnFin_Db
select TRN_ID, cast(TRN_ID as varchar(12)) + '  ' + TRN_PAVAD from bd_tarn
;;
-- screen: TEditPrgDlg, session: mnFin_Db
select max(prg_id) from bd_prg
;;
-- screen: TEditPrgDlg, session: mnFin_Db
select TRN_ID, TRN_PAVAD from bd_tarn order by TRN_PAVAD
;;
-- screen: TPareigFrm, session: mnFin_Db
-- param PRG_ID = 2
-- param PRG_PAVAD = 'Ūkvedys'
-- param PRG_SUBORD = 1
-- param PRG_KLA_KOD = 47
-- param PRG_MOKGYD = 0
-- param PRG_TRNID = null
insert into bd_prg (PRG_ID, PRG_PAVAD, PRG_SUBORD, PRG_KLA_KOD, PRG_MOKGYD, PRG_TRNID)
values (:PRG_ID, :PRG_PAVAD, :PRG_SUBORD, :PRG_KLA_KOD, :PRG_MOKGYD, :PRG_TRNID)
;;
-- screen: TPareigFrm, session: mnFin_Db
-- param PRG_ID = 2
-- param PRG_PAVAD = 'Ūkvedys'
-- param PRG_SUBORD = 1
-- param PRG_KLA_KOD = 47
-- param PRG_MOKGYD = 0
-- param PRG_TRNID = null
-- param OLD_PRG_ID = 2
update bd_prg set PRG_ID = :PRG_ID, PRG_PAVAD = :PRG_PAVAD, PRG_SUBORD = :PRG_SUBORD, PRG_KLA_KOD = :PRG_KLA_KOD, PRG_MOKGYD = :PRG_MOKGYD, PRG_TRNID = :PRG_TRNID where PRG_ID = :OLD_PRG_ID
;;
-- screen: TPareigFrm, session: mnFin_Db
-- param OLD_PRG_ID = 2
delete from bd_prg where PRG_ID = :OLD_PRG_ID
;;
-- screen: TVTarnFrm, session: mnFin_Db
select * from bd_tarn order by trn_id
;;
-- screen: TVTarnDlg, session: mnFin_Db
select GetNextTableColumnId('dba','bd_tarn','trn_id') from dummy
;;
-- screen: TVTarnFrm, session: mnFin_Db
-- param TRN_ID = 3
-- param TRN_PAVAD = 'Vyresnysis'
-- param TRN_KOEF = 1.35
insert into bd_tarn (TRN_ID, TRN_PAVAD, TRN_KOEF)
values (:TRN_ID, :TRN_PAVAD, :TRN_KOEF)
;;
-- screen: TVTarnFrm, session: mnFin_Db
-- param TRN_ID = 3
-- param TRN_PAVAD = 'Vyresnysis'
-- param TRN_KOEF = 1.35
-- param OLD_TRN_ID = 3
update bd_tarn set TRN_ID = :TRN_ID, TRN_PAVAD = :TRN_PAVAD, TRN_KOEF = :TRN_KOEF where TRN_ID = :OLD_TRN_ID
;;
-- screen: TVTarnFrm, session: mnFin_Db
-- param OLD_TRN_ID = 3
delete from bd_tarn where TRN_ID = :OLD_TRN_ID
;;
-- screen: TVeiklFrm, session: mnFin_Db
select * from du_veikl
;;
-- screen: TVeiklRedFrm, session: mnFin_Db
select GetNextTableColumnId('dba','DU_VEIKL','VKL_ID') from dummy
;;
-- screen: TVeiklFrm, session: mnFin_Db
-- param VKL_ID = 1
-- param VKL_KODAS = 10
-- param VKL_PAVAD = 'Švietimas'
insert into du_veikl (VKL_ID, VKL_KODAS, VKL_PAVAD)
values (:VKL_ID, :VKL_KODAS, :VKL_PAVAD)
;;
-- screen: TVeiklFrm, session: mnFin_Db
-- param VKL_ID = 1
-- param VKL_KODAS = 10
-- param VKL_PAVAD = 'Švietimas'
-- param OLD_VKL_ID = 1
update du_veikl set VKL_ID = :VKL_ID, VKL_KODAS = :VKL_KODAS, VKL_PAVAD = :VKL_PAVAD where VKL_ID = :OLD_VKL_ID
;;
-- screen: TVeiklFrm, session: mnFin_Db
-- param OLD_VKL_ID = 1
delete from du_veikl where VKL_ID = :OLD_VKL_ID
;;
-- screen: TDrbKlasFrm, session: mnFin_Db
SELECT kla_kodas, cast(floor(kla_kodas/10) as smallint) as Tipas, mod(kla_kodas,10) as Kodas, kla_pavad FROM du_drbklas
;;
-- screen: TDrbKlasFrm, session: mnFin_Db
-- param tipas = 4
-- param kodas = 8
-- param kla_pavad = 'Mokytojai'
insert into du_drbklas (kla_kodas, kla_pavad) values (:tipas *10 + :kodas, :kla_pavad)
;;
-- screen: TDrbKlasFrm, session: mnFin_Db
-- param tipas = 4
-- param kodas = 9
-- param kla_pavad = 'Mokytojai'
-- param OLD_kla_kodas = 47
update du_drbklas set kla_kodas =  :tipas * 10 + :kodas, kla_pavad = :kla_pavad where kla_kodas = :OLD_kla_kodas
;;
-- screen: TDrbKlasFrm, session: mnFin_Db
-- param OLD_kla_kodas = 47
delete from du_drbklas where kla_kodas = :OLD_kla_kodas
;;
-- screen: TObjektFrm, session: mnFin_Db
SELECT * FROM bd_objektai
;;
-- screen: TObjektFrm, session: mnFin_Db
select max(obj_id) from bd_objektai
;;
-- screen: TObjektFrm, session: mnFin_Db
-- param OBJ_ID = 1
-- param OBJ_PAVAD = 'Šilainių darželis'
insert into bd_objektai (OBJ_ID, OBJ_PAVAD)
values (:OBJ_ID, :OBJ_PAVAD)
;;
-- screen: TObjektFrm, session: mnFin_Db
-- param OBJ_PAVAD = 'Šilainių darželis'
-- param OLD_OBJ_ID = 1
update bd_objektai set OBJ_PAVAD = :OBJ_PAVAD where OBJ_ID = :OLD_OBJ_ID
;;
-- screen: TObjektFrm, session: mnFin_Db
-- param OLD_OBJ_ID = 1
delete from bd_objektai where OBJ_ID = :OLD_OBJ_ID
;;
-- screen: TPajamuRusiuKodaiFrm, session: mnFin_Db
SELECT * FROM Bd_PajamuRusiuKodai
;;
-- screen: TPajamuRusiuKodaiEditFrm, session: mnFin_Db
-- param Kod = '01'
SELECT * FROM Bd_PajamuRusiuKodai WHERE Paj_Kod = :Kod
;;
-- screen: TPajamuRusiuKodaiEditFrm, session: mnFin_Db
-- param Paj_Kod = '01'
-- param Paj_Pavad = 'Darbo užmokestis'
-- param Paj_NeDrbSant = 0
insert into Bd_PajamuRusiuKodai (Paj_Kod, Paj_Pavad, Paj_NeDrbSant)
values (:Paj_Kod, :Paj_Pavad, :Paj_NeDrbSant)
;;
-- screen: TPajamuRusiuKodaiEditFrm, session: mnFin_Db
-- param Paj_Pavad = 'Darbo užmokestis'
-- param Paj_NeDrbSant = 0
-- param OLD_Paj_Kod = '01'
update Bd_PajamuRusiuKodai set Paj_Pavad = :Paj_Pavad, Paj_NeDrbSant = :Paj_NeDrbSant where Paj_Kod = :OLD_Paj_Kod
;;
-- screen: TPajamuRusiuKodaiFrm, session: mnFin_Db
-- param OLD_Paj_Kod = '01'
delete from Bd_PajamuRusiuKodai where Paj_Kod = :OLD_Paj_Kod
;;
-- screen: TPardTipFrm, session: mnFin_Db
select * from IT_PARDTIP
;;
-- screen: TPardTipFrm, session: mnFin_Db
select GetNextTableColumnId('dba','it_pardTip','Pat_ID') from dummy
;;
-- screen: TPardTipFrm, session: mnFin_Db
select f_CheckUsed('it_pardtip', 'pat_id', '1') from dummy
;;
-- screen: TPardTipFrm, session: mnFin_Db
-- param pat_id = 1
-- param pat_pav = 'Nurašymas'
insert into it_pardtip (pat_id, pat_pav)
values (:pat_id, :pat_pav)
;;
-- screen: TPardTipFrm, session: mnFin_Db
-- param pat_pav = 'Nurašymas'
-- param OLD_pat_id = 1
update it_pardtip set pat_pav = :pat_pav where pat_id = :OLD_pat_id
;;
-- screen: TPardTipFrm, session: mnFin_Db
-- param OLD_pat_id = 1
delete from it_pardtip where pat_id = :OLD_pat_id
;;
-- screen: TPirkTipFrm, session: mnFin_Db
select * from IT_PIRKTIP
;;
-- screen: TPirkTipFrm, session: mnFin_Db
select GetNextTableColumnId('dba','it_pirkTip','pit_ID') from dummy
;;
-- screen: TPirkTipFrm, session: mnFin_Db
select f_CheckUsed('it_pirktip', 'pit_id', '1') from dummy
;;
-- screen: TPirkTipFrm, session: mnFin_Db
-- param pit_id = 1
-- param pit_pav = 'Pirkimas'
-- param pit_tipas = 1
-- param pit_pozymis = 0
insert into it_pirktip (pit_id, pit_pav, pit_tipas, pit_pozymis)
values (:pit_id, :pit_pav, :pit_tipas, :pit_pozymis)
;;
-- screen: TPirkTipFrm, session: mnFin_Db
-- param pit_pav = 'Pirkimas'
-- param pit_tipas = 1
-- param pit_pozymis = 0
-- param OLD_pit_id = 1
update it_pirktip set pit_pav = :pit_pav, pit_tipas = :pit_tipas, pit_pozymis = :pit_pozymis where pit_id = :OLD_pit_id
;;
-- screen: TPirkTipFrm, session: mnFin_Db
-- param OLD_pit_id = 1
delete from it_pirktip where pit_id = :OLD_pit_id
;;
-- screen: TImokosFrm, session: mnFin_Db
SELECT * FROM pp_imok
;;
-- screen: TNewImokDlg, session: mnFin_Db
-- param kodas = '101'
SELECT * FROM pp_imok WHERE imo_kod = :kodas
;;
-- screen: TNewImokDlg, session: mnFin_Db
-- param IMO_KOD = '101'
-- param IMO_PAVAD = 'Rinkliava'
insert into pp_imok (IMO_KOD, IMO_PAVAD)
values (:IMO_KOD, :IMO_PAVAD)
;;
-- screen: TNewImokDlg, session: mnFin_Db
-- param IMO_PAVAD = 'Rinkliava'
-- param OLD_IMO_KOD = '101'
update pp_imok set IMO_PAVAD = :IMO_PAVAD where IMO_KOD = :OLD_IMO_KOD
;;
-- screen: TImokosFrm, session: mnFin_Db
-- param OLD_IMO_KOD = '101'
delete from pp_imok where IMO_KOD = :OLD_IMO_KOD
;;
-- screen: TNuomFrm, session: mnFin_Db
select NUOM_ID, NUOM_KOD, NUOM_PAVAD, NUOM_ADR, NUOM_TEL, NUOM_I_KOD, NUOM_PVM_KOD, NUOM_EIN_SAS, NUOM_BANK_PAV,
  (a.SAS_SASNR+'  '+a.SAS_PAVAD) as SASKAITA, (b.SAS_SASNR+'  '+b.SAS_PAVAD) as SASKAITA_2
from bd_nuomasm left outer join bd_sasplan as a on (a.sas_id=nuom_sasid) left outer join bd_sasplan as b on (b.sas_id=nuom_sasid2) order by nuom_kod
;;
-- screen: TNuomDlg, session: mnFin_Db
-- param ID = 1
select * from bd_nuomasm where nuom_id = :ID
;;
-- screen: TNuomDlg, session: mnFin_Db
select count(nuom_id) from bd_nuomasm where nuom_kod ='N1'
;;
-- screen: TNuomDlg, session: mnFin_Db
select count(nuom_id) from bd_nuomasm where nuom_kod ='N1' and nuom_id <> 1
;;
-- screen: TNuomDlg, session: mnFin_Db
select max(nuom_id) from bd_nuomasm
;;
-- screen: TNuomDlg, session: mnFin_Db
-- param NUOM_ID = 1
-- param NUOM_SASID = 1
-- param NUOM_KOD = 'N1'
-- param NUOM_PAVAD = 'UAB Ąžuolas'
-- param NUOM_ADR = null
-- param NUOM_TEL = '8 5 2123456'
-- param NUOM_I_KOD = 302513713
-- param NUOM_PVM_KOD = null
-- param NUOM_EIN_SAS = 'LT647044001231465456'
-- param NUOM_BANK_PAV = null
-- param NUOM_SASID2 = 2
insert into bd_nuomasm (NUOM_ID, NUOM_SASID, NUOM_KOD, NUOM_PAVAD, NUOM_ADR, NUOM_TEL, NUOM_I_KOD, NUOM_PVM_KOD, NUOM_EIN_SAS, NUOM_BANK_PAV, NUOM_SASID2)
values (:NUOM_ID, :NUOM_SASID, :NUOM_KOD, :NUOM_PAVAD, :NUOM_ADR, :NUOM_TEL, :NUOM_I_KOD, :NUOM_PVM_KOD, :NUOM_EIN_SAS, :NUOM_BANK_PAV, :NUOM_SASID2)
;;
-- screen: TNuomDlg, session: mnFin_Db
-- param NUOM_SASID = 1
-- param NUOM_KOD = 'N1'
-- param NUOM_PAVAD = 'UAB Ąžuolas'
-- param NUOM_ADR = null
-- param NUOM_TEL = '8 5 2123456'
-- param NUOM_I_KOD = 302513713
-- param NUOM_PVM_KOD = null
-- param NUOM_EIN_SAS = 'LT647044001231465456'
-- param NUOM_BANK_PAV = null
-- param NUOM_SASID2 = 2
-- param OLD_NUOM_ID = 1
update bd_nuomasm set NUOM_SASID = :NUOM_SASID, NUOM_KOD = :NUOM_KOD, NUOM_PAVAD = :NUOM_PAVAD, NUOM_ADR = :NUOM_ADR, NUOM_TEL = :NUOM_TEL, NUOM_I_KOD = :NUOM_I_KOD, NUOM_PVM_KOD = :NUOM_PVM_KOD, NUOM_EIN_SAS = :NUOM_EIN_SAS, NUOM_BANK_PAV = :NUOM_BANK_PAV, NUOM_SASID2 = :NUOM_SASID2 where NUOM_ID = :OLD_NUOM_ID
;;
-- screen: TNuomFrm, session: mnFin_Db
-- param OLD_NUOM_ID = 1
delete from bd_nuomasm where NUOM_ID = :OLD_NUOM_ID
;;
