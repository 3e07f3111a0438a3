-- screen: TBalFrm, session: both
select bel_kod, bel_pavad from bd_baleil order by bel_kod
;;
-- screen: TBalFrm, session: mnFin_Db
select bss_balkod, sas_sasnr from bd_balsas, bd_sasplan where sas_id=bss_sasid order by bss_id
;;
-- screen: TBalFrm, session: mnRavl
select bss_balkod, bss_sasnr from bd_balsas order by bss_id
;;
-- screen: TBalFrm, session: mnFin_Db
select sas_sasnr, sas_id from bd_sasplan
;;
-- screen: TBalFrm, session: mnFin_Db
-- param kod0 = 'A0101'
-- param reiksme0 = 1
-- param kod1 = 'A0101'
-- param reiksme1 = 1
insert into bd_balsas values (NULL, :kod0, :reiksme0, 'D'), (NULL, :kod1, :reiksme1, 'D')
;;
-- screen: TBalFrm, session: mnRavl
-- param kod0 = 'A0101'
-- param reiksme0 = ' 2412, 2413'
-- param kod1 = 'A0101'
-- param reiksme1 = '2413'
insert into bd_balsas values (NULL, :kod0, :reiksme0, 'D'), (NULL, :kod1, :reiksme1, 'D')
;;
-- screen: TBalFrm, session: both
DELETE FROM bd_baleil
;;
-- screen: TBalFrm, session: both
-- param kod0 = 'A0102'
-- param reiksme0 = 'Bankų sąskaitos '
-- param kod1 = 'A0103'
-- param reiksme1 = 'Kasa'
insert into bd_baleil (bel_kod, bel_pavad) values (:kod0, :reiksme0), (:kod1, :reiksme1)
;;
-- screen: TCheckSasDlg, session: mnFin_Db
SELECT SAS_ID, SAS_SASNR, SAS_PAVAD FROM BD_SASPLAN WHERE SAS_TIP = 'D' and CheckSasInBalForm(SAS_ID, '%') = 0 ORDER BY SAS_SASNR
;;
-- screen: ShowBalanceFormCheck, session: mnFin_Db
select sas_id, sas_sasnr, sas_pavad, sas_tip from bd_sasplan order by sas_sasnr
;;
-- screen: ShowBalanceFormCheck, session: mnFin_Db
-- param perid = 6
select ssl_sasid, sum(ssl_sum_db), sum(ssl_sum_kr) from bd_saslik where ssl_perid = :perid group by ssl_sasid
;;
-- screen: ShowBalanceFormCheck, session: mnFin_Db
-- param perid = 6
select irs_sasid, sum(irs_sum_db), sum(irs_sum_kr) from bd_irasai where irs_perid = :perid group by irs_sasid
;;
-- screen: ShowBalanceFormCheck, session: mnFin_Db
select bss_sasid, bel_kod, bel_pavad from bd_balsas, bd_baleil where bel_kod = bss_balkod order by bel_kod, bss_id
;;
-- screen: TOprFrm, session: mnFin_Db
select opr_id, opr_pavad from bd_opr
;;
-- screen: TOprFrm, session: mnFin_Db
-- param oprid = 1
select * from bd_OprSasKor where osk_oprid=:oprid and osk_db_kr="D" and osk_1_2="1"
;;
-- screen: TOprFrm, session: mnFin_Db
-- param oprid = 1
select * from bd_OprSasKor where osk_oprid=:oprid and osk_db_kr="K" and osk_1_2="1"
;;
-- screen: TOprFrm, session: mnFin_Db
-- param opr_id = 2
-- param opr_pavad = 'Darbo užmokesčio priskaitymas'
insert into bd_opr (opr_id, opr_pavad) values (:opr_id, :opr_pavad)
;;
-- screen: TOprFrm, session: mnFin_Db
-- param opr_pavad = 'Darbo užmokestis'
-- param OLD_opr_id = 1
update bd_opr set opr_pavad = :opr_pavad where opr_id = :OLD_opr_id
;;
-- screen: TOprFrm, session: mnFin_Db
-- param OLD_opr_id = 1
delete from bd_opr where opr_id = :OLD_opr_id
;;
-- screen: TOprFrm, session: mnFin_Db
-- param osk_oprid = 1
-- param osk_sasid = 2
-- param osk_db_kr = 'K'
-- param osk_1_2 = '1'
insert into bd_OprSasKor (OSK_OPRID, OSK_SASID, OSK_DB_KR, OSK_1_2) values (:osk_oprid, :osk_sasid, :osk_db_kr, :osk_1_2)
;;
-- screen: TOprFrm, session: mnFin_Db
-- param osk_sasid = 1
-- param OLD_osk_oprid = 1
-- param OLD_osk_sasid = 2
-- param OLD_osk_db_kr = 'K'
-- param OLD_osk_1_2 = '1'
update bd_OprSasKor set OSK_SASID = :osk_sasid where OSK_OPRID = :OLD_osk_oprid and OSK_SASID = :OLD_osk_sasid and OSK_DB_KR = :OLD_osk_db_kr and OSK_1_2 = :OLD_osk_1_2
;;
-- screen: TOprFrm, session: mnFin_Db
-- param OLD_osk_oprid = 1
-- param OLD_osk_sasid = 2
-- param OLD_osk_db_kr = 'K'
-- param OLD_osk_1_2 = '1'
delete from bd_OprSasKor where OSK_OPRID = :OLD_osk_oprid and OSK_SASID = :OLD_osk_sasid and OSK_DB_KR = :OLD_osk_db_kr and OSK_1_2 = :OLD_osk_1_2
;;
