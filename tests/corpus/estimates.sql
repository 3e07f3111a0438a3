-- screen: TSamFrm, session: mnFin_Db
-- param perid = 1
select * from bd_samatos where sam_perid >= :perid and sam_perid < :perid + 5 order by sam_perid
;;
-- screen: TSamFrm, session: mnFin_Db
-- param perid = 1
-- param sam_jveid = 1
select SUM(sam_samata) as sum_sam, SUM(sam_sam_kor) as sum_kor from bd_samatos where sam_perid=:perid and sam_jveid=:sam_jveid group by sam_perid
;;
-- screen: TSamFrm, session: mnFin_Db
-- param perid = 1
-- param sjveid = 1
select cast(SUM(sam_samata) as numeric(11,2)) as sum_sam, cast(SUM(sam_sam_kor) as numeric(11,2)) as sum_kor from bd_samatos where sam_jveid=:sjveid and sam_perid>:perid and sam_perid<:perid+5 group by sam_jveid
;;
-- screen: TSamFrm, session: mnFin_Db
SELECT per_id, per_metai FROM bd_period WHERE per_menuo=0 and per_ketv=0
;;
-- screen: TSamFrm, session: mnFin_Db
select * from bd_period where per_menuo=0
;;
-- screen: TSamFrm, session: mnFin_Db
-- param OLD_sam_id = 1
delete from bd_samatos where sam_id = :OLD_sam_id
;;
-- screen: TSamDlg, session: mnFin_Db
select max(sam_id) from bd_samatos
;;
-- screen: TSamDlg, session: mnFin_Db
-- param sam_id = 2
-- param sam_jveid = 1
-- param sam_perid = 2
-- param sam_samata = 250.25
-- param sam_sam_kor = 0
insert into bd_samatos (SAM_ID, SAM_JVEID, SAM_PERID, SAM_SAMATA, SAM_SAM_KOR)
values (:sam_id, :sam_jveid, :sam_perid, :sam_samata, :sam_sam_kor)
;;
-- screen: TSamDlg, session: mnFin_Db
-- param sam_samata = 900
-- param OLD_sam_id = 1
update bd_samatos set sam_samata = :sam_samata where sam_id = :OLD_sam_id
;;
-- screen: TKorListDlg, session: mnFin_Db
-- param samid = 1
select * from bd_samkor where sak_samid=:samid order by sak_data
;;
-- screen: TKorListDlg, session: mnFin_Db
delete from bd_samkor where sak_id=1
;;
-- screen: TSamKorDlg, session: mnFin_Db
-- param ID = 1
-- param SAMID = 1
select SAK_DATA, SAK_I_KETV, SAK_II_KETV, SAK_III_KETV, SAK_IV_KETV, SAK_SAMID, SAK_ID, SAK_DOKNR from BD_SAMKOR where SAK_ID=:ID and SAK_SAMID=:SAMID
;;
-- screen: TSamKorDlg, session: mnFin_Db
select max(sak_id) from bd_samkor
;;
-- screen: TSamKorDlg, session: mnFin_Db
-- param sak_id = 1
-- param sak_samid = 1
-- param sak_data = 2005-03-11
-- param sak_doknr = 'T1-12'
-- param sak_i_ketv = -10.5
-- param sak_ii_ketv = 0
-- param sak_iii_ketv = 0
-- param sak_iv_ketv = 10.5
insert into bd_samkor (SAK_ID, SAK_SAMID, SAK_DATA, SAK_DOKNR, SAK_I_KETV, SAK_II_KETV, SAK_III_KETV, SAK_IV_KETV)
values (:sak_id, :sak_samid, :sak_data, :sak_doknr, :sak_i_ketv, :sak_ii_ketv, :sak_iii_ketv, :sak_iv_ketv)
;;
-- screen: TSamKorDlg, session: mnFin_Db
-- param sak_i_ketv = 5
-- param OLD_sak_id = 1
update bd_samkor set sak_i_ketv = :sak_i_ketv where sak_id = :OLD_sak_id
;;
