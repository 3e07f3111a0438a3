-- screen: rows, session: mnFin_Db
insert into bd_period values (1, 2005, 0, 0)
;;
-- screen: rows, session: mnFin_Db
insert into bd_period values (2, 2005, 1, 0)
;;
-- screen: rows, session: mnFin_Db
insert into bd_period values (3, 2005, 2, 0)
;;
-- screen: rows, session: mnFin_Db
insert into bd_period values (4, 2005, 3, 0)
;;
-- screen: rows, session: mnFin_Db
insert into bd_period values (5, 2005, 4, 0)
;;
-- screen: rows, session: mnFin_Db
insert into bd_period values (6, 2005, 1, 1)
;;
-- screen: rows, session: mnFin_Db
insert into bd_period values (7, 2005, 1, 2)
;;
-- screen: rows, session: mnFin_Db
insert into bd_sasplan (sas_id, sas_sasnr, sas_pavad, sas_tip) values (1, '241', 'Kasa', 'D')
;;
-- screen: rows, session: mnFin_Db
insert into bd_sasplan (sas_id, sas_sasnr, sas_pavad, sas_tip) values (2, '4430', 'Mokėtinos sumos', 'D')
;;
-- screen: rows, session: mnFin_Db
insert into bd_asgisl (isl_id, isl_pavad) values (1, 'Savivaldybės biudžetas')
;;
-- screen: rows, session: mnFin_Db
insert into bd_jve (jve_id, jve_islid, jve_kodas, jve_pavad, jve_duom) values (1, 1, '2', 'Išlaidos', 1)
;;
-- screen: rows, session: mnFin_Db
insert into bd_pad (pad_id, pad_pavad, pad_kodas) values (1, 'Žemės skyrius', 'ŽS')
;;
-- screen: rows, session: mnFin_Db
insert into bd_prg (prg_id, prg_pavad) values (1, 'Buhalterė')
;;
-- screen: rows, session: mnFin_Db
insert into bd_opr (opr_id, opr_pavad) values (1, 'Pinigų išmokėjimas')
;;
-- screen: rows, session: mnFin_Db
insert into bd_samatos (sam_id, sam_jveid, sam_perid, sam_samata, sam_sam_kor) values (1, 1, 1, 1000, 0)
;;
-- screen: rows, session: mnFin_Db
insert into bd_dbkrasm (dka_id, dka_kod, dka_pavad, dka_bank_kod, dka_bank_pav, dka_i_kod, dka_sasid, dka_sasid_2)
values (17, 'ŽVK', 'Žvejų kooperatyvas', 70440, 'Šiaulių bankas', 110053842, 1, 2)
;;
-- screen: rows, session: mnFin_Db
insert into bd_dbkrlik (dkl_id, dkl_perid, dkl_dkaid, dkl_sum_db, dkl_sum_kr, dkl_padid) values (1, 7, 17, 10.50, 0, 1)
;;
-- screen: rows, session: mnFin_Db
insert into bd_dbkrlik (dkl_id, dkl_perid, dkl_sasid, dkl_pavad, dkl_sum_db, dkl_sum_kr)
values (2, 7, 1, 'Ąžuolas', 0, 3.25)
;;
-- screen: rows, session: mnFin_Db
insert into bd_saslik (ssl_id, ssl_sasid, ssl_perid, ssl_sum_db, ssl_sum_kr) values (1, 1, 6, 100, 0)
;;
-- screen: rows, session: mnFin_Db
insert into bd_isllik (sml_id, sml_perid, sml_jveid, sml_asig_db) values (1, 6, 1, 100)
;;
-- screen: rows, session: mnFin_Db
insert into bd_einsas (ein_id, ein_nr, ein_sasid, ein_bank_kod, ein_bank_pav)
values (1, 'LT647044001231465456', 1, null, 'Šiaulių bankas')
;;
-- screen: rows, session: mnFin_Db
insert into bd_baleil (bel_kod, bel_pavad) values ('A0101', 'Kasa')
;;
-- screen: rows, session: mnFin_Db
insert into du_drbklas (kla_kodas, kla_pavad) values (47, 'Buhalteriai')
;;
-- screen: rows, session: mnRavl
insert into bd_fin (fin_pavad, fin_dir) values ('Valstybės biudžetas', 'vb')
;;
-- screen: rows, session: mnRavl
insert into bd_kdv (kdv_id, kdv_pav) values (3, 'Kasa')
;;
-- screen: rows, session: mnRavl
insert into bd_usr (usr_id, usr_name, usr_vardas, usr_pavarde, usr_pasw, usr_perziurai, usr_user_admin)
values (1, 'ona', 'Ona', 'Žukienė', 'x', 0, 1)
;;
-- screen: rows, session: mnRavl
insert into bd_baleil (bel_kod, bel_pavad) values ('A0101', 'Kasa')
;;
