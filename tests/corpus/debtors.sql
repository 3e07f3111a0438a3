-- screen: TDbKrFrm, session: mnFin_Db
select    DKA_ID,    DKA_KOD,    (a.SAS_SASNR+'  '+a.SAS_PAVAD) as SASKAITA,   DKA_PAVAD,    DKA_ADR,    DKA_TEL,    DKA_I_KOD,    DKA_PVM_KOD,    DKA_EIN_SAS,    DKA_BANK_KOD,    DKA_BANK_PAV,   (b.SAS_SASNR+'  '+b.SAS_PAVAD) as SASKAITA_2 from Bd_DbKrAsm, bd_sasplan as a, bd_sasplan as b, where    a.sas_id=dka_sasid and b.sas_id=dka_sasid_2 ORDER BY DKA_KOD
;;
-- screen: TDbKrFrm, session: mnFin_Db
select f_CheckUsed('bd_dbkrasm', 'dka_id', '17') from dummy
;;
-- screen: TDbKrFrm, session: mnFin_Db
delete from bd_dbkrasm where dka_id=18
;;
-- screen: TEditDbKrDlg, session: mnFin_Db
-- param ID = 17
select * from Bd_DbKrAsm where DKA_ID =:ID
;;
-- screen: TEditDbKrDlg, session: mnFin_Db
select distinct dka_bank_pav, 1 from bd_dbkrasm where ISNULL(dka_bank_pav,'') <> '' order by 1
;;
-- screen: TEditDbKrDlg, session: mnFin_Db
select distinct dka_bank_kod, 1 from bd_dbkrasm where ISNULL(dka_bank_kod,'') <> '' order by 1
;;
-- screen: TEditDbKrDlg, session: mnFin_Db
select count(dka_id) from bd_dbkrasm where dka_kod ='ŽVK'
;;
-- screen: TEditDbKrDlg, session: mnFin_Db
select count(dka_id) from bd_dbkrasm where dka_kod ='O''Brien' and dka_id <> 17
;;
-- screen: TEditDbKrDlg, session: mnFin_Db
select max(dka_id) from bd_dbkrasm
;;
-- screen: TEditDbKrDlg, session: mnFin_Db
-- param dka_id = 18
-- param dka_kod = 'K18'
-- param dka_pavad = 'Įmonė „Ąžuolas“'
-- param dka_adr = 'Kalvų g. 3'
-- param dka_tel = '8 5 2123456'
-- param dka_i_kod = 302513713
-- param dka_pvm_kod = 'LT100005432119'
-- param dka_ein_sas = 'LT647044001231465456'
-- param dka_bank_kod = null
-- param dka_bank_pav = 'Šiaulių bankas'
-- param dka_sasid = 1
-- param dka_sasid_2 = 2
-- param dka_klient_infsist = null
insert into bd_dbkrasm (dka_id, dka_kod, dka_pavad, dka_adr, dka_tel, dka_i_kod, dka_pvm_kod, dka_ein_sas, dka_bank_kod,
  dka_bank_pav, dka_sasid, dka_sasid_2, dka_klient_infsist)
values (:dka_id, :dka_kod, :dka_pavad, :dka_adr, :dka_tel, :dka_i_kod, :dka_pvm_kod, :dka_ein_sas, :dka_bank_kod,
  :dka_bank_pav, :dka_sasid, :dka_sasid_2, :dka_klient_infsist)
;;
-- screen: TEditDbKrDlg, session: mnFin_Db
-- param dka_kod = 'K18'
-- param dka_sasid = 2
-- param OLD_dka_id = 17
update bd_dbkrasm set dka_kod = :dka_kod, dka_sasid = :dka_sasid where dka_id = :OLD_dka_id
;;
-- screen: TDbKrSutart, session: mnFin_Db
-- param DKAID = 17
select * from bd_dbkrsut where dks_dkaid=:DKAID
;;
-- screen: TDbKrSutart, session: mnFin_Db
-- param dks_dkaid = 17
-- param dks_nr = 'S-1'
-- param dks_nuo = 2007-01-01
-- param dks_iki = null
-- param dks_tipas = 'B'
-- param dks_suma = 1200.5
insert into bd_dbkrsut (dks_dkaid, dks_nr, dks_nuo, dks_iki, dks_tipas, dks_suma)
values (:dks_dkaid, :dks_nr, :dks_nuo, :dks_iki, :dks_tipas, :dks_suma)
;;
-- screen: TDbKrSutart, session: mnFin_Db
-- param dks_tipas = 'M'
-- param dks_iki = 2008-12-31
-- param OLD_dks_id = 1
update bd_dbkrsut set dks_tipas = :dks_tipas, dks_iki = :dks_iki where dks_id = :OLD_dks_id
;;
-- screen: TCopyDbKrFrm, session: mnFin_Db
-- param ID = 17
select * from Bd_DbKrAsm where DKA_ID =:ID
;;
-- screen: TCopyDbKrFrm, session: mnFin_Db
select distinct dka_bank_pav, 1 from bd_dbkrasm where ISNULL(dka_bank_pav,'') <> '' order by 1
;;
-- screen: TCopyDbKrFrm, session: mnFin_Db
select distinct dka_bank_kod, 1 from bd_dbkrasm where ISNULL(dka_bank_kod,'') <> '' order by 1
;;
-- screen: TCopyDbKrFrm, session: mnFin_Db
select count(dka_id) from bd_dbkrasm where dka_kod ='ŽVK'
;;
-- screen: TCopyDbKrFrm, session: mnFin_Db
select max(dka_id) from bd_dbkrasm
;;
-- screen: OpenReports, session: mnFin_Db
select DKA_ID, DKA_KOD, DKA_PAVAD, DKA_ADR, DKA_TEL, DKA_I_KOD, DKA_PVM_KOD, DKA_EIN_SAS, DKA_BANK_PAV, a.SAS_SASNR as SASNR, b.SAS_SASNR as SASNR_2 from Bd_DbKrAsm, bd_sasplan as a, bd_sasplan as b where a.sas_id=dka_sasid and b.sas_id=dka_sasid_2 ORDER BY DKA_KOD
;;
