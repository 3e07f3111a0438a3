-- screen: TSkyriaiFrm, session: mnFin_Db
select * from bd_pad order by pad_pavad
;;
-- screen: TSkyriaiFrm, session: mnFin_Db
-- param PAD_ID = 1
-- param PAD_PAVAD = 'Ūkio skyrius'
-- param PAD_ADR = null
-- param PAD_IST = 1
-- param PAD_KODAS = 'Ū1'
-- param PAD_VKLID = 1
-- param PAD_SASID = 1
-- param PAD_FUNID = null
-- param PAD_ISLID = 1
-- param PAD_SASID2 = null
-- param OLD_PAD_ID = 1
update bd_pad set   PAD_ID = :PAD_ID,   PAD_PAVAD = :PAD_PAVAD,   PAD_ADR = :PAD_ADR,   PAD_IST = :PAD_IST,   PAD_KODAS = :PAD_KODAS,   PAD_VKLID = :PAD_VKLID,   PAD_SASID = :PAD_SASID,   PAD_FUNID = :PAD_FUNID,   PAD_ISLID = :PAD_ISLID,   PAD_SASID2 = :PAD_SASID2 where   PAD_ID = :OLD_PAD_ID
;;
-- screen: TSkyriaiFrm, session: mnFin_Db
-- param PAD_ID = 2
-- param PAD_PAVAD = 'Ūkio skyrius'
-- param PAD_ADR = null
-- param PAD_IST = 0
-- param PAD_KODAS = 'Ū1'
-- param PAD_VKLID = 1
-- param PAD_SASID = null
-- param PAD_FUNID = null
-- param PAD_ISLID = null
-- param PAD_SASID2 = null
insert into bd_pad (PAD_ID, PAD_PAVAD, PAD_ADR, PAD_IST, PAD_KODAS, PAD_VKLID, PAD_SASID, PAD_FUNID, PAD_ISLID, PAD_SASID2)
values (:PAD_ID, :PAD_PAVAD, :PAD_ADR, :PAD_IST, :PAD_KODAS, :PAD_VKLID, :PAD_SASID, :PAD_FUNID, :PAD_ISLID, :PAD_SASID2)
;;
-- screen: TSkyriaiFrm, session: mnFin_Db
-- param OLD_PAD_ID = 2
delete from bd_pad where   PAD_ID = :OLD_PAD_ID
;;
-- screen: TSkyriaiFrm, session: mnFin_Db
select count(pad_kodas) from bd_pad where pad_id <> 1 and UCASE(pad_kodas)=UCASE('žs')
;;
-- screen: TSkyriaiFrm, session: mnFin_Db
select count(pad_kodas) from bd_pad where UCASE(pad_kodas)=UCASE('ab1')
;;
-- screen: TSkyriaiFrm, session: mnFin_Db
select * from bd_sasplan
;;
-- screen: TSkyriaiFrm, session: mnFin_Db
select   isl_id,   isl_pavad from bd_asgisl
;;
-- screen: TPadItemFrm, session: mnFin_Db
select max(pad_id) from bd_pad
;;
-- screen: TPadItemFrm, session: mnFin_Db
select isl_pavad from bd_asgisl where isl_id = 1
;;
-- screen: TPadItemFrm, session: mnFin_Db
select VKL_PAVAD, VKL_ID from du_veikl order by vkl_pavad
;;
-- screen: TLaikymoVietosFrm, session: mnFin_Db
-- param PADID = 1
SELECT * FROM bd_laikymo_vieta WHERE lv_padid=:PADID
;;
-- screen: TLaikymoVietosFrm, session: mnFin_Db
-- param LV_ID = 1
delete from BD_LAIKYMO_VIETA where LV_ID = :LV_ID
;;
-- screen: TLVEditFrm, session: mnFin_Db
-- param ID = 1
SELECT * FROM bd_laikymo_vieta WHERE lv_id=:ID
;;
-- screen: TLVEditFrm, session: mnFin_Db
SELECT ISNULL(MAX(lv_id),0)+1 FROM bd_laikymo_vieta
;;
-- screen: TLVEditFrm, session: mnFin_Db
-- param lv_id = 1
-- param lv_padid = 1
-- param lv_pav = 'Rūsys'
insert into bd_laikymo_vieta (lv_id, lv_padid, lv_pav) values (:lv_id, :lv_padid, :lv_pav)
;;
-- screen: TLVEditFrm, session: mnFin_Db
-- param lv_pav = 'Palėpė'
-- param OLD_lv_id = 1
update bd_laikymo_vieta set lv_pav = :lv_pav where lv_id = :OLD_lv_id
;;
