-- screen: THistoryFrm, session: mnFin_Db
select ist_id, ist_laikas, ist_login, ist_stotis, ist_lentele, ist_raktas, ist_veiksmas, ist_buvo, ist_yra from bd_istorija where ist_laikas >= '2026-06-01' and ist_laikas < '2026-07-02' and ist_lentele = 'bd_kasos' and ist_login = 'ona' order by ist_laikas desc, ist_id desc
;;
-- screen: THistoryFrm, session: mnFin_Db
select ist_id, ist_laikas, ist_login, ist_stotis, ist_lentele, ist_raktas, ist_veiksmas, ist_buvo, ist_yra from bd_istorija where ist_laikas >= '2026-06-01' and ist_laikas < '2026-07-02' order by ist_laikas desc, ist_id desc
;;
-- screen: THistoryFrm, session: mnRavl
select ist_id, ist_laikas, ist_login, ist_stotis, ist_lentele, ist_raktas, ist_veiksmas, ist_buvo, ist_yra from bd_istorija where ist_lentele = 'bd_usr' and ist_raktas = '1' order by ist_id desc
;;
-- screen: THistoryFrm, session: mnFin_Db
-- param po = ''
select min(ist_login) from bd_istorija where ist_login > :po
;;
-- screen: THistoryFrm, session: mnFin_Db
select max(ist_laikas) from bd_istorija
;;
-- screen: THistoryFrm, session: mnFin_Db
select rys_stulpelis, rys_i_lentele, rys_i_stulpelis from sys_rysiai
;;
-- screen: THistoryFrm, session: mnFin_Db
-- param id = 1
select sas_sasnr + ' ' + sas_pavad from bd_sasplan where sas_id = :id
;;
