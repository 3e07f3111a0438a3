-- screen: TSasPlanFrm, session: mnFin_Db
-- param tevas = 0
select sas_id, sas_sasnr, sas_pavad, sas_tip from bd_sasplan where 0 = :tevas or sas_id = :tevas or sas_tevid = :tevas order by sas_sasnr
;;
-- screen: TSasPlanFrm, session: mnFin_Db
select sas_id, sas_tevid, sas_sasnr, sas_pavad, 1 as lapas from bd_sasplan
;;
-- screen: TSasPlanFrm, session: mnFin_Db
select f_CheckUsed('bd_sasplan', 'SAS_ID', '1') from dummy
;;
-- screen: TSasPlanFrm, session: mnFin_Db
-- param tevas = null
-- param raktas = 1
update bd_sasplan set sas_tevid = :tevas where SAS_ID = :raktas
;;
-- screen: TSasPlanFrm, session: mnFin_Db
-- param raktas = 1
select sas_tevid from bd_sasplan where SAS_ID = :raktas
;;
-- screen: TSasPlanFrm, session: mnFin_Db
-- param raktas = 1
select count(*) from bd_sasplan where sas_tevid = :raktas
;;
-- screen: TSasPlanFrm, session: mnFin_Db
-- param id = 1
update bd_sasplan set sas_tip = 'S' where sas_id = :id
;;
-- screen: TSasPlanDlg, session: mnFin_Db
-- param id = 1
select * from bd_sasplan where sas_id = :id
;;
-- screen: TSasPlanDlg, session: mnFin_Db
select GetNextTableColumnId('dba','bd_sasplan','sas_id') from dummy
;;
-- screen: TSasPlanDlg, session: mnFin_Db
-- param id = 1
-- param perid = 6
select count(*) from bd_saslik where ssl_sasid = :id and ssl_perid = :perid and (ssl_sum_db <> 0 or ssl_sum_kr <> 0)
;;
-- screen: TSasPlanDlg, session: mnFin_Db
-- param id = 1
-- param perid = 6
select count(*) from bd_dbkrlik where dkl_sasid = :id and dkl_perid = :perid and (dkl_sum_db <> 0 or dkl_sum_kr <> 0)
;;
-- screen: TSasPlanDlg, session: mnFin_Db
-- param id = 1
-- param perid = 6
select count(*) from bd_irasai where irs_sasid = :id and irs_perid = :perid
;;
-- screen: OpenSasModal, session: mnFin_Db
select sas_id, sas_tevid, sas_sasnr, sas_pavad, case when sas_tip = 'D' then 1 else 0 end as detali from bd_sasplan where ISNULL(sas_tip, 'S') <> 'U' order by sas_sasnr
;;
-- screen: TKnygosFrm, session: mnFin_Db
select * from bd_asgisl order by isl_pavad
;;
-- screen: TKnygosFrm, session: mnFin_Db
select f_CheckUsed('bd_asgisl', 'ISL_ID', '1') from dummy
;;
-- screen: TKnygaDlg, session: mnFin_Db
-- param id = 1
select * from bd_asgisl where isl_id = :id
;;
-- screen: TKnygaDlg, session: mnFin_Db
select GetNextTableColumnId('dba','bd_asgisl','isl_id') from dummy
;;
-- screen: TMazgaiFrm, session: mnFin_Db
-- param knyga = 1
-- param tevas = 0
select jve_id, jve_kodas, jve_pavad, jve_duom, jve_tevid from bd_jve where jve_islid = :knyga and (0 = :tevas or jve_id = :tevas or jve_tevid = :tevas) order by jve_kodas
;;
-- screen: TMazgaiFrm, session: mnFin_Db
select jve_id, jve_tevid, jve_kodas, jve_pavad, jve_duom from bd_jve where jve_islid = 1
;;
-- screen: TMazgaiFrm, session: mnFin_Db
select rys_lentele, rys_stulpelis from sys_rysiai where rys_i_lentele = 'bd_jve' and rys_i_stulpelis = 'jve_id' and rys_lentele <> 'bd_jve'
;;
-- screen: TMazgaiFrm, session: mnFin_Db
select count(*) from bd_samatos where sam_jveid in (1,2,3)
;;
-- screen: TMazgasDlg, session: mnFin_Db
-- param id = 1
select * from bd_jve where jve_id = :id
;;
-- screen: TMazgasDlg, session: mnFin_Db
select GetNextTableColumnId('dba','bd_jve','jve_id') from dummy
;;
-- screen: TMazgasDlg, session: mnFin_Db
-- param knyga = 1
-- param id = 1
-- param tevas = 0
-- param kodas = '2.1'
select count(*) from bd_jve where jve_islid = :knyga and jve_id <> :id and ISNULL(jve_tevid, 0) = :tevas and jve_kodas = :kodas
;;
-- screen: TFunkcijosFrm, session: mnFin_Db
-- param tevas = 0
select fun_id, fun_kodas, fun_pavad from bd_fun where 0 = :tevas or fun_id = :tevas or fun_tevid = :tevas order by fun_kodas
;;
-- screen: TFunkcijosFrm, session: mnFin_Db
select fun_id, fun_tevid, fun_kodas, fun_pavad, 1 as lapas from bd_fun
;;
-- screen: TFunkcijaDlg, session: mnFin_Db
-- param id = 1
select * from bd_fun where fun_id = :id
;;
-- screen: TFunkcijaDlg, session: mnFin_Db
select GetNextTableColumnId('dba','bd_fun','fun_id') from dummy
;;
-- screen: TDarboVietosFrm, session: mnRavl
select * from bd_kdv order by kdv_id
;;
-- screen: TDarboVietosFrm, session: mnRavl
select count(*) from bd_usrkdv where (POWER(2, (3-1)) & udv_kdv) <> 0
;;
-- screen: TDarboVietaDlg, session: mnRavl
-- param id = 1
select * from bd_kdv where kdv_id = :id
;;
-- screen: TDarboVietaDlg, session: mnRavl
select max(kdv_id) from bd_kdv
;;
-- screen: TDarboVietaDlg, session: mnRavl
-- param bitas = 4
-- param id = 1
update bd_usrkdv set udv_kdv = udv_kdv + :bitas where udv_usrid = :id
;;
-- screen: TSavivaldybesFrm, session: both
select * from bd_savivaldybes order by sav_pavad
;;
-- screen: TSavivaldybesFrm, session: both
select f_CheckUsed('bd_savivaldybes', 'sav_kod', '13') from dummy
;;
-- screen: TSavivaldybesFrm, session: mnRavl
-- param kod = 13
delete from bd_savivaldybes where sav_kod = :kod
;;
-- screen: TSavivaldybeDlg, session: mnFin_Db
-- param kod = 13
select * from bd_savivaldybes where sav_kod = :kod
;;
-- screen: TSavivaldybeDlg, session: mnRavl
-- param kod = 13
-- param pavad = 'Vilniaus miesto'
update bd_savivaldybes set sav_pavad = :pavad where sav_kod = :kod
;;
-- screen: TSavivaldybeDlg, session: mnRavl
-- param kod = 999
-- param pavad = 'Nauja'
insert into bd_savivaldybes (sav_kod, sav_pavad) values (:kod, :pavad)
;;
