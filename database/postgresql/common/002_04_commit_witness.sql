-- Whether the records that the transaction of that number left are in the name of this session's person and station;
-- null where it left none. A server that took over without a transaction may give its number to another one, so the
-- number alone proves nothing, and records of somebody else prove that the session's own was lost.
-- Who may not read the history is not told.
create function sys_ar_irasyta(numeris xid8) returns boolean
language sql stable
as $$
    select bool_or((ist_login is not distinct from nullif(current_setting('velmora.login', true), '')
                    or ist_login is not distinct from session_user::text)
                   and ist_stotis is not distinct from nullif(current_setting('velmora.stotis', true), ''))
    from bd_istorija
    where xmin = numeris::xid
      and ist_laikas >= to_char(clock_timestamp() - interval '1 day', 'YYYY-MM-DD HH24:MI:SS.MS')
$$;
