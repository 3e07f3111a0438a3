-- screen: TCloseCheckFrm, session: mnFin_Db
-- param perid = 6
select 0 as raktas, 'Visos sąskaitos' as kas, sum(ssl_sum_db) as debetas, sum(ssl_sum_kr) as kreditas from bd_saslik where ssl_perid = :perid group by ssl_perid having sum(ssl_sum_db) <> sum(ssl_sum_kr)
;;
-- screen: TCloseCheckFrm, session: mnFin_Db
-- param perid = 6
select dka_sasid, dka_sasid_2, sum(dkl_sum_db - dkl_sum_kr) as suma from bd_dbkrlik, bd_dbkrasm where dkl_perid = :perid and dka_id = dkl_dkaid group by dka_sasid, dka_sasid_2
;;
-- screen: TCloseCheckFrm, session: mnFin_Db
-- param perid = 6
select dkl_sasid, dkl_sasid as pati, sum(dkl_sum_db - dkl_sum_kr) as suma from bd_dbkrlik where dkl_perid = :perid and dkl_dkaid is null and dkl_sasid is not null group by dkl_sasid
;;
-- screen: TCloseCheckFrm, session: mnFin_Db
-- param perid = 6
select ssl_sasid, sum(ssl_sum_db - ssl_sum_kr) as suma from bd_saslik where ssl_perid = :perid group by ssl_sasid
;;
-- screen: TCloseCheckFrm, session: mnFin_Db
select sas_id, sas_sasnr from bd_sasplan order by sas_sasnr
;;
-- screen: TCloseCheckFrm, session: mnFin_Db
-- param perid = 6
select min(irs_id) as raktas, ISNULL(DATEFORMAT(irs_data, 'yyyy.mm.dd'), '') + '  ' + ISNULL(irs_dok, 'be numerio') as kas, sum(irs_sum_db) as debetas, sum(irs_sum_kr) as kreditas from bd_irasai where irs_perid = :perid group by irs_data, irs_dok having sum(irs_sum_db) <> sum(irs_sum_kr) order by irs_data, irs_dok
;;
-- screen: TCloseCheckFrm, session: mnFin_Db
-- param perid = 6
select sas_sasnr, sas_pavad from bd_sasplan where exists (select 1 from bd_irasai where irs_sasid = sas_id and irs_perid = :perid) order by sas_sasnr
;;
-- screen: TCloseCheckFrm, session: mnFin_Db
select distinct sas_sasnr from bd_balsas, bd_sasplan where sas_id = bss_sasid
;;
-- screen: TCloseCheckFrm, session: mnRavl
select bss_sasnr from bd_balsas where bss_sasnr is not null
;;
-- screen: TCloseCheckFrm, session: mnFin_Db
-- param metai = 2005
select irs_jveid, sum(irs_kas_db - irs_kas_kr) as suma from bd_irasai, bd_period where per_id = irs_perid and per_metai = :metai and per_menuo > 0 and irs_jveid is not null group by irs_jveid
;;
-- screen: TCloseCheckFrm, session: mnFin_Db
-- param metai = 2005
select sml_jveid, sum(sml_kas_db - sml_kas_kr) as suma from bd_isllik, bd_period p where p.per_id = sml_perid and p.per_metai = :metai and p.per_menuo > 0 and p.per_ketv * 3 + p.per_menuo > 4 and not exists (select 1 from bd_period e where e.per_menuo > 0 and (e.per_metai < p.per_metai or (e.per_metai = p.per_metai and e.per_ketv * 3 + e.per_menuo < p.per_ketv * 3 + p.per_menuo))) group by sml_jveid
;;
-- screen: TCloseCheckFrm, session: mnFin_Db
-- param metai = 2005
select sam_jveid, jve_kodas, jve_pavad, sam_samata, sam_sam_kor from bd_samatos, bd_period, bd_jve where per_id = sam_perid and jve_id = sam_jveid and per_metai = :metai and per_ketv = 0 order by jve_kodas, jve_id
;;
-- screen: TCloseCheckFrm, session: mnFin_Db
-- param raktas = '24'
select sas_pavad from bd_sasplan where sas_sasnr = :raktas
;;
-- screen: TCloseCheckFrm, session: mnFin_Db
-- param raktas = '24'
-- param perid = 6
select min(ssl_id) from bd_saslik, bd_sasplan where ssl_sasid = sas_id and ssl_perid = :perid and sas_sasnr = :raktas
;;
-- screen: TCloseCheckFrm, session: mnFin_Db
-- param raktas = 1
select jve_kodas + '  ' + jve_pavad from bd_jve where jve_id = :raktas
;;
-- screen: TCloseCheckFrm, session: mnFin_Db
-- param raktas = 1
select dka_pavad from bd_dbkrasm where dka_id = :raktas
;;
-- screen: TCloseCheckFrm, session: mnFin_Db
-- param raktas = 1
select pad_pavad from bd_pad where pad_id = :raktas
;;
-- screen: TCloseCheckFrm, session: mnFin_Db
-- param dkl_dkaid = 1
-- param dkl_padid = 1
-- param perid = 6
select min(dkl_id) from bd_dbkrlik where dkl_perid = :perid and dkl_dkaid = :dkl_dkaid and dkl_sasid is null and dkl_i_kod is null and dkl_pavad is null and dkl_padid = :dkl_padid
;;
-- screen: TRollBackFrm, session: mnFin_Db
-- param perid = 6
select count(*) as eilutes, sum(ssl_sum_db) as debetas, sum(ssl_sum_kr) as kreditas from bd_saslik where ssl_perid = :perid
;;
-- screen: TRollBackFrm, session: mnFin_Db
-- param metai = 2005
-- param perid = 6
select count(*) from bd_period where per_metai = :metai and ISNULL(per_menuo, 0) = 0 and not exists (select 1 from bd_period m where m.per_metai = :metai and m.per_menuo > 0 and m.per_id <> :perid) and not exists (select 1 from bd_samatos, bd_period s where s.per_id = sam_perid and s.per_metai = :metai)
;;
-- screen: TIrasaiFrm, session: mnFin_Db
-- param perid = 6
select irs_id, irs_data, irs_dok, sas_sasnr, sas_pavad, irs_sum_db, irs_sum_kr, dka_pavad from bd_irasai left join bd_sasplan on sas_id = irs_sasid left join bd_dbkrasm on dka_id = irs_dkaid where irs_perid = :perid order by irs_data, irs_dok, irs_id
;;
