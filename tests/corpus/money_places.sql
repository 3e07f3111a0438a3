-- screen: TKasosFrm, session: mnFin_Db
select * from bd_kasos order by kas_pavad
;;
-- screen: TKasosFrm, session: mnFin_Db
-- param KAS_ID = 1
-- param KAS_SASID = 1
-- param KAS_PAVAD = 'Žaliojo kampo kasa'
insert into bd_kasos (KAS_ID, KAS_SASID, KAS_PAVAD) values (:KAS_ID, :KAS_SASID, :KAS_PAVAD)
;;
-- screen: TKasosFrm, session: mnFin_Db
-- param KAS_SASID = 2
-- param KAS_PAVAD = 'Kasa'
-- param OLD_KAS_ID = 1
update bd_kasos set KAS_SASID = :KAS_SASID, KAS_PAVAD = :KAS_PAVAD where KAS_ID = :OLD_KAS_ID
;;
-- screen: TKasosFrm, session: mnFin_Db
-- param OLD_KAS_ID = 1
delete from bd_kasos where KAS_ID = :OLD_KAS_ID
;;
-- screen: TKasosFrm, session: mnFin_Db
select f_CheckUsed('bd_kasos', 'kas_id', '1') from dummy
;;
-- screen: TKasNewFrm, session: mnFin_Db
select GetNextTableColumnId('dba','bd_kasos','kas_id') from dummy
;;
-- screen: TEinSasFrm, session: mnFin_Db
select EIN_ID, EIN_BANK_KOD, (SAS_SASNR + '  ' + SAS_PAVAD) as SAS_NR_PAVAD, EIN_BANK_PAV, EIN_NR FROM bd_einsas inner join bd_sasplan on (EIN_SASID = SAS_ID)
;;
-- screen: TEinSasFrm, session: mnFin_Db
select f_CheckUsed('bd_einsas', 'ein_id', '1') from dummy
;;
-- screen: TEinSasFrm, session: mnFin_Db
delete from bd_einsas where ein_id=1
;;
-- screen: TEinSasItem, session: mnFin_Db
-- param ParId = 1
select * from bd_einsas where ein_id  =:ParId
;;
-- screen: TEinSasItem, session: mnFin_Db
SELECT distinct EIN_NR,1 FROM bd_einsas where ISNULL(EIN_NR,'') <> '' order by ein_nr
;;
-- screen: TEinSasItem, session: mnFin_Db
select distinct ein_bank_kod, 1 from bd_einsas where ISNULL(ein_bank_kod,'') <> '' order by 1
;;
-- screen: TEinSasItem, session: mnFin_Db
select distinct ein_bank_pav, 1 from bd_einsas where ISNULL(ein_bank_pav,'') <> '' order by 1
;;
-- screen: TEinSasItem, session: mnFin_Db
select max(ein_id) from bd_einsas
;;
-- screen: TEinSasItem, session: mnFin_Db
-- param ein_id = 2
-- param ein_nr = 'LT12'
-- param ein_sasid = 1
-- param ein_bank_kod = null
-- param ein_bank_pav = 'Šiaulių bankas'
insert into bd_einsas (ein_id, ein_nr, ein_sasid, ein_bank_kod, ein_bank_pav)
values (:ein_id, :ein_nr, :ein_sasid, :ein_bank_kod, :ein_bank_pav)
;;
-- screen: TEinSasItem, session: mnFin_Db
-- param ein_bank_kod = 12345
-- param OLD_ein_id = 1
update bd_einsas set ein_bank_kod = :ein_bank_kod where ein_id = :OLD_ein_id
;;
