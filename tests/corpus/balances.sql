-- screen: TSasLikFrm, session: mnFin_Db
-- param perid = 6
SELECT Bd_sasplan.SAS_SASNR, Bd_saslik.SSL_ID, Bd_saslik.SSL_SUM_DB, Bd_saslik.SSL_SUM_KR,
  (Bd_sasplan.SAS_SASNR + '  ')  + Bd_sasplan.SAS_PAVAD as SASKAITA
FROM BD_SASLIK Bd_saslik, BD_SASPLAN Bd_sasplan
WHERE (Bd_saslik.ssl_perid = :perid) AND (Bd_saslik.SSL_SASID = Bd_sasplan.SAS_ID)
ORDER BY SASKAITA
;;
-- screen: TSasLikFrm, session: mnFin_Db
-- param id = 6
SELECT ssl_perid, sum(ssl_sum_db) as suma_deb, sum(ssl_sum_kr) as suma_kerd FROM bd_saslik WHERE ssl_perid=:id GROUP BY ssl_perid
;;
-- screen: TSasLikFrm, session: mnFin_Db
select GetDateByPeriodId(per_id) as data, per_id from bd_period where per_metai<>0 and per_ketv<>0 and per_menuo<>0 order by 1
;;
-- screen: TSasLikFrm, session: mnFin_Db
SELECT DATEFORMAT(GetDateByPeriodId(6),'yyyy.mm.dd') FROM dummy
;;
-- screen: TSasLikFrm, session: mnFin_Db
-- param ssl_id = 1
delete from bd_saslik where ssl_id = :ssl_id
;;
-- screen: TSasLikDlg, session: mnFin_Db
-- param id = 1
select * from bd_saslik where ssl_id=:id
;;
-- screen: TSasLikDlg, session: mnFin_Db
select max(ssl_id) from bd_saslik
;;
-- screen: TSasLikDlg, session: mnFin_Db
-- param ssl_id = 2
-- param ssl_sasid = 1
-- param ssl_perid = 6
-- param ssl_sum_db = 10.5
-- param ssl_sum_kr = 0
insert into bd_saslik (ssl_id, ssl_sasid, ssl_perid, ssl_sum_db, ssl_sum_kr)
values (:ssl_id, :ssl_sasid, :ssl_perid, :ssl_sum_db, :ssl_sum_kr)
;;
-- screen: TSasLikDlg, session: mnFin_Db
-- param ssl_sasid = 1
-- param ssl_sum_db = 0
-- param ssl_sum_kr = 10.5
-- param OLD_ssl_id = 1
update bd_saslik set ssl_sasid = :ssl_sasid, ssl_sum_db = :ssl_sum_db, ssl_sum_kr = :ssl_sum_kr where ssl_id = :OLD_ssl_id
;;
-- screen: TIslFrm, session: mnFin_Db
select GetDateByPeriodId(per_id) as data, per_id from bd_period where per_metai<>0 and per_ketv<>0 and per_menuo<>0 order by 1
;;
-- screen: TIslFrm, session: mnFin_Db
-- param perid = 6
-- param JungId = 1
SELECT * FROM bd_isllik WHERE sml_perid = :perid AND sml_jveid = :JungId
;;
-- screen: TIslFrm, session: mnFin_Db
select max(per_metai) from bd_period
;;
-- screen: TIslFrm, session: mnFin_Db
select count() from bd_isllik key join bd_period where per_id<>7 and per_metai=2005
;;
-- screen: TIslFrm, session: mnFin_Db
select per_ketv * per_menuo from bd_period where per_id = 7
;;
-- screen: TIslFrm, session: mnFin_Db
-- param OLD_sml_id = 1
delete from bd_isllik where sml_id = :OLD_sml_id
;;
-- screen: TIslLikDlg, session: mnFin_Db
select GetNextTableColumnId('dba','bd_isllik','sml_id') from dummy
;;
-- screen: TIslLikDlg, session: mnFin_Db
-- param sml_id = 2
-- param sml_perid = 7
-- param sml_jveid = 1
-- param sml_asig_db = 5
-- param sml_asig_kr = 0
-- param sml_kas_db = 5.25
-- param sml_kas_kr = 0
-- param sml_fak_db = 0
-- param sml_fak_kr = 1
insert into bd_isllik (sml_id, sml_perid, sml_jveid, sml_asig_db, sml_asig_kr, sml_kas_db, sml_kas_kr, sml_fak_db, sml_fak_kr)
values (:sml_id, :sml_perid, :sml_jveid, :sml_asig_db, :sml_asig_kr, :sml_kas_db, :sml_kas_kr, :sml_fak_db, :sml_fak_kr)
;;
-- screen: TIslLikDlg, session: mnFin_Db
-- param sml_asig_db = 0
-- param sml_asig_kr = 5
-- param OLD_sml_id = 1
update bd_isllik set sml_asig_db = :sml_asig_db, sml_asig_kr = :sml_asig_kr where sml_id = :OLD_sml_id
;;
-- screen: TDKALikFrm, session: mnFin_Db
-- param PerId = 7
select   dkl_id,   ifnull(dkl_dkaid, dkl_i_kod, dka_i_kod) as IKodas,   ifnull(dkl_dkaid, dkl_pavad, dka_pavad) as IPavad,   dkl_sum_db,   dkl_sum_kr,   ifnull(dkl_dkaid, dkl_sasid, dka_sasid) as sasid,   sas_sasnr + ' ' + sas_pavad as Saskaita,   pad_pavad   from bd_dbkrlik as a left outer join bd_dbkrasm on dkl_dkaid=dka_id,   bd_dbkrlik as a left outer join bd_pad on dkl_padid = pad_id,   bd_sasplan where dkl_perid=:PerId and sasid=sas_id order by IPavad
;;
-- screen: TDKALikFrm, session: mnFin_Db
select GetDateByPeriodId(per_id) as data, per_id from bd_period where per_metai<>0 and per_ketv<>0 and per_menuo<>0 order by 1 desc
;;
-- screen: TDKALikFrm, session: mnFin_Db
select count() from bd_dbkrlik where dkl_perid<>get_last_per_id()
;;
-- screen: TDKALikFrm, session: mnFin_Db
select sum(isnull(dkl_sum_db,0)) from bd_dbkrlik where dkl_perid=7
;;
-- screen: TDKALikFrm, session: mnFin_Db
select sum(isnull(dkl_sum_kr,0)) from bd_dbkrlik where dkl_perid=7
;;
-- screen: TDKALikFrm, session: mnFin_Db
call p_CalcDBKRLik(null)
;;
-- screen: TDKALikFrm, session: mnFin_Db
delete from bd_dbkrlik
;;
-- screen: TDKALikFrm, session: mnFin_Db
-- param dkl_id = 1
delete from bd_dbkrlik where dkl_id = :dkl_id
;;
-- screen: TDKALikDlg, session: mnFin_Db
-- param id = 1
select * from bd_dbkrlik where dkl_id=:id
;;
-- screen: TDKALikDlg, session: mnFin_Db
select pad_id,   pad_pavad from bd_pad
;;
-- screen: TDKALikDlg, session: mnFin_Db
select max(dkl_id) from bd_dbkrlik
;;
-- screen: TDKALikDlg, session: mnFin_Db
-- param dkl_id = 3
-- param dkl_perid = 7
-- param dkl_dkaid = null
-- param dkl_sasid = 1
-- param dkl_i_kod = 110053842
-- param dkl_pavad = 'Ūkininkas'
-- param dkl_sum_db = 12.3456
-- param dkl_sum_kr = 0
-- param dkl_padid = null
insert into bd_dbkrlik (dkl_id, dkl_perid, dkl_dkaid, dkl_sasid, dkl_i_kod, dkl_pavad, dkl_sum_db, dkl_sum_kr, dkl_padid)
values (:dkl_id, :dkl_perid, :dkl_dkaid, :dkl_sasid, :dkl_i_kod, :dkl_pavad, :dkl_sum_db, :dkl_sum_kr, :dkl_padid)
;;
-- screen: TDKALikDlg, session: mnFin_Db
-- param dkl_sum_db = 0
-- param dkl_sum_kr = 12.5
-- param OLD_dkl_id = 1
update bd_dbkrlik set dkl_sum_db = :dkl_sum_db, dkl_sum_kr = :dkl_sum_kr where dkl_id = :OLD_dkl_id
;;
