// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// German texts.
#include "i18n/StringTables.h"

namespace orvanta::strings {
namespace {
constexpr StringEntry kEntries[] = {
    // app
    { "app_title", "Orvanta" },
    { "app_subtitle", "Professionelle Ultra-HDR-Fotoautomatisierung" },

    // status line
    { "status_env_ready", "Umgebung bereit" },
    { "status_env_missing", "Fehlende Abhängigkeiten" },
    { "status_ready", "Bereit" },
    { "status_processing", "Procesando..." },
    { "status_failed", "Fallido" },
    { "status_scanning", "Quellfotos werden durchsucht..." },
    { "status_scan_done", "Scan abgeschlossen: %d ausstehend" },
    { "status_processing_item", "Verarbeitung [%d/%d]: %@…" },
    { "status_item_completed", "Fertig [%d/%d] %@ (+%.2f LW)" },
    { "status_item_failed", "Fehlgeschlagen [%d/%d] %@" },
    { "status_batch_completed", "Stapel abgeschlossen (Erfolgreich: %d, Fehlgeschlagen: %d)" },
    { "status_all_up_to_date",
      "Alle Elemente sind bereits aktuell (%d übersprungen, keine ausstehenden Dateien)" },
    { "status_cancelled", "Vom Benutzer abgebrochen" },
    { "status_cancelling", "Wird angehalten..." },
    { "status_dryrun_completed", "Testlauf simuliert: %d gesamt, %d ausstehend, %d übersprungen" },
    { "status_abnormal", "Unerwartet beendet (Exit-Code %d)" },

    // tabs
    { "tab_live_run", "Live-Verarbeitung" },
    { "tab_history", "Verlauf & Quarantäne" },

    // footer
    { "footer_storage_safe", "%@ eingebunden & fehlerfrei (%.1f GB frei)" },

    // notifications
    { "notif_batch_completed_title", "Stapelverarbeitung abgeschlossen" },
    { "notif_action_open_folder", "Im Dateimanager anzeigen" },
    { "notif_batch_success_body", "%d Ultra-HDR-Fotos in %.1f s erfolgreich erstellt." },
    { "notif_batch_failed_body", "%d erfolgreich, %d fehlgeschlagen." },

    // folder bar
    { "folder_source_title", "Quellordner" },
    { "folder_source_placeholder", "RAW+JPG-Quellordner auswählen" },
    { "folder_dest_title", "Ausgabeordner" },
    { "folder_dest_placeholder", "Zielordner für Ultra HDR auswählen" },

    // buttons
    { "btn_browse", "Durchsuchen..." },
    { "btn_start_batch", "Stapel starten" },
    { "btn_stop", "Verarbeitung stoppen" },
    { "btn_refresh", "Aktualisieren" },
    { "btn_settings", "Einstellungen (Strg+,)" },
    { "btn_done", "Fertig" },
    { "btn_custom_columns", "Spalten anpassen" },
    { "btn_select_all", "Alle auswählen" },
    { "btn_deselect_all", "Auswahl aufheben" },
    { "btn_batch_delete", "Auswahl löschen" },
    { "btn_batch_reprocess", "Auswahl neu verarbeiten" },
    { "btn_toggle_console", "Konsolenprotokoll" },
    { "btn_clear_console", "Konsole leeren" },
    { "btn_xdr_compare_pill", "HDR-Vergleich" },
    { "btn_zebra", "Zebra (Z)" },
    { "btn_histogram", "Histogramm (H)" },
    { "btn_check_now", "Jetzt prüfen" },
    { "btn_close", "Schließen" },
    { "btn_ok", "OK" },

    // dialogs
    { "dialog_select_folder", "Ordner auswählen" },
    { "dialog_error_title", "Quarantäne: Fehlerdetails" },
    { "dialog_ok", "OK" },
    { "dialog_file_missing_title", "Foto no encontrada en el disco" },
    { "dialog_file_missing_desc",
      "El archivo [%@] se ha movido, renombrado o eliminado de su ubicación original." },

    // batch options
    { "opt_force_reprocess", "Neu verarbeiten erzwingen" },
    { "opt_force_reprocess_help", "Datenbankverlauf ignorieren und alle Fotos neu erzeugen" },
    { "opt_backlit_fill", "KI-Gegenlichtaufhellung" },
    { "opt_backlit_fill_help",
      "Hellt abgeschattete Gesichter und Motive bei Gegenlicht sanft auf, ohne den hellen "
      "Hintergrund zu verändern" },
    { "opt_dry_run", "Testlauf-Modus" },
    { "opt_dry_run_help",
      "Durchsucht den Quellordner und zeigt, was verarbeitet würde, ohne Dateien zu schreiben" },
    { "opt_single_stem", "Einzelnes Foto:" },
    { "opt_single_stem_placeholder", "z. B. DSC04223 (optional)" },

    // progress card
    { "card_processing", "Stapel wird verarbeitet" },
    { "card_idle", "Leerlauf" },
    { "card_pairs_found", "%d Paare gefunden" },
    { "card_progress_ratio", "[%d / %d]  %d%%" },
    // main window: time left in the running batch, quitting
    { "card_time_left", "noch %@" },
    { "menu_quit", "Orvanta beenden" },

    // progress metrics
    { "metric_faces", "Gesichter: %d" },
    { "metric_peak_gain", "Max. Verstärkung: +%.2f LW" },
    { "metric_bayer_clip", "Sensor-Clipping: %.3f%%" },
    { "metric_duration", "Laufzeit: %.1f s" },
    { "metric_elapsed", "Laufzeit" },
    { "metric_throughput_speed", "%.1f s / Foto" },

    // console
    { "console_title", "Live-Konsole" },
    { "console_auto_scroll", "Automatisch scrollen" },
    { "console_clear", "Leeren" },
    { "console_waiting", "Warte auf Ausgabe der Engine..." },
    { "console_copy_all", "Alles kopieren" },
    { "console_copied", "Kopiert!" },

    // dashboard figures
    { "kpi_total_processed", "Gesamt verarbeitet" },
    { "kpi_success_delivered", "Erfolgreich / Ausgegeben" },
    { "kpi_quarantine_failed", "Quarantäne / Fehlgeschlagen" },
    { "kpi_avg_duration", "Ø Dauer" },

    // units
    { "unit_photos", "Fotos" },
    { "unit_ultra_hdr", "Ultra HDR" },
    { "unit_attention_needed", "Prüfung erforderlich" },
    { "unit_sec_per_photo", "s / Foto" },
    { "unit_faces", "%d Gesichter" },

    // history
    { "history_search_placeholder", "Dateiname suchen (z. B. DSC04223)..." },
    { "history_empty", "Kein Verarbeitungsverlauf vorhanden" },
    { "history_loading_more", "Weitere Fotos werden geladen..." },
    { "history_all_loaded", "Alle %d Fotos geladen" },

    // errors
    { "error_unknown", "Unbekannter Fehler" },

    // actions
    { "action_reveal_finder", "Im Dateimanager anzeigen" },
    { "action_quicklook", "Schnellvorschau (Leertaste)" },
    { "action_file_offline", "Datei offline" },
    { "action_view_error", "Fehlerdetails anzeigen" },
    { "action_switch_language", "Sprache ändern" },
    { "action_edr_compare", "HDR-Vergleich (geteilt)" },
    { "action_airdrop", "Per E-Mail senden" },
    { "action_share_sheet", "Teilen…" },
    { "action_inspector", "Metadaten-Inspektor öffnen..." },

    // settings window
    { "settings_title", "Einstellungen" },
    { "settings_tab_perf", "Leistung" },
    { "settings_tab_paths", "Pfade" },
    { "settings_tab_safety", "Sicherheit & Diagnose" },
    { "settings_tab_styles", "Stilvorgaben" },
    { "settings_workers_label", "Parallele Verarbeitungsprozesse" },
    { "settings_workers_auto", "Automatisch (adaptiv)" },
    { "settings_workers_1", "1 Prozess (Sparsam)" },
    { "settings_workers_2", "2 Prozesse (Ausgewogen)" },
    { "settings_workers_3", "3 Prozesse (Schnell)" },
    { "settings_workers_4", "4 Prozesse (Hoch)" },
    { "settings_workers_6", "6 Prozesse (Turbo)" },
    { "settings_workers_8", "8 Prozesse (Maximum)" },
    { "settings_workers_desc",
      "Bei „Automatisch“ wählt die Engine die Anzahl paralleler Prozesse anhand der verfügbaren "
      "CPU-Kerne und des Arbeitsspeichers. Mehr Prozesse schließen einen Stapel schneller ab, "
      "benötigen aber mehr Arbeitsspeicher." },
    { "settings_throttle_label", "Dynamische Drosselung bei Speicherdruck" },
    { "settings_throttle_desc",
      "Verlangsamt die Engine, wenn der Arbeitsspeicher knapp wird, damit lange Stapel stabil "
      "bleiben, statt auf die Auslagerung auszuweichen." },
    { "settings_probe_title", "Hardware- & Speichermonitor (live)" },
    { "settings_canary_label", "Schutz beim Trennen externer Laufwerke" },
    { "settings_canary_desc",
      "Hält den Stapel sicher an, wenn das Ziellaufwerk während des Exports getrennt wird oder der "
      "freie Speicherplatz knapp wird." },
    { "settings_masks_label", "Debug-Masken & Gain Maps exportieren" },
    { "settings_sound_label", "Signalton bei Abschluss" },
    { "settings_sound_desc",
      "Spielt zusammen mit der Benachrichtigung einen Ton ab, wenn ein Stapel fertig ist." },
    { "settings_btn_open_logs", "Protokolle im Dateimanager anzeigen" },
    { "settings_btn_open_db", "Status-DB im Dateimanager anzeigen" },
    { "settings_core_hardened",
      "Gehärteter Kern: Die Engine läuft in einem eigenen Prozess, und jedes fertige Foto wird in "
      "der Statusdatenbank erfasst." },
    { "settings_styles_desc",
      "Wählen Sie ein Ultra-HDR-Renderingprofil, das auf Ihr fotografisches Genre abgestimmt ist. "
      "Das gewählte Profil gilt für alle folgenden Stapel." },
    { "settings_diagnostics_title", "Systemdiagnose & Protokolle" },
    { "settings_probe_refresh_help", "Hardware- und Speicherwerte aktualisieren" },
    { "settings_probe_ram", "Arbeitsspeicher (RAM)" },
    { "settings_probe_arch", "Architektur" },
    { "settings_probe_pressure", "Speicherdruck" },
    { "settings_default_source_dir", "Standardordner für Quellfotos" },
    { "settings_default_dest_dir", "Standardordner für Ultra-HDR-Ausgabe" },
    { "settings_tab_updates", "Updates" },
    { "settings_updates_title", "Software-Updates" },
    { "settings_auto_check", "Automatisch nach Updates suchen" },
    { "settings_auto_check_desc",
      "Orvanta sucht einmal täglich nach einer neuen Version und informiert Sie, sobald eine "
      "verfügbar ist." },
    { "settings_manual_check", "Manuell prüfen" },
    { "settings_manual_check_desc", "Jetzt nach einer neuen Version von Orvanta suchen." },
    { "settings_tab_about", "Über & Rechtliches" },
    { "settings_about_tagline",
      "Verwandelt Ihre RAW+JPG-Paare in brillante Ultra-HDR-Fotos – bereit für jedes "
      "HDR-Display." },
    { "settings_about_engine_badge", "Angetrieben von der Orvanta Ultra HDR Engine" },
    { "settings_about_ack_title", "Danksagungen" },
    { "settings_about_ack_desc",
      "Orvanta baut auf diesen Open-Source-Projekten auf. Herzlichen Dank an ihre Entwickler und "
      "Communitys." },
    // settings window: naming template warnings and the updates page
    { "export_warning_forbidden_chars", "In Dateinamen nicht erlaubt: %@" },
    { "export_warning_unknown_placeholders",
      "Unbekannte Platzhalter, werden unverändert übernommen: %@" },
    { "settings_updates_unavailable",
      "In diesem Build von Orvanta ist die Suche nach Updates nicht eingerichtet." },

    // style presets
    { "style_profile_title", "Stilvorgabe" },

    // style profiles
    { "profile_default_title", "Standard (originalgetreu)" },
    { "profile_default_desc",
      "Originalgetreuer Lichterverlauf und ausgewogener Kontrast bei natürlichem Dynamikumfang" },
    { "profile_portrait_title", "Porträt (weich)" },
    { "profile_portrait_desc",
      "Weiche Übergänge in den Spitzlichtern und leuchtende, natürliche Hauttöne auch bei hartem "
      "Licht" },
    { "profile_landscape_title", "Landschaft (kräftig)" },
    { "profile_landscape_desc",
      "Verstärkter Mikrokontrast und brillante Spitzlichter für lebendige, kraftvolle Motive" },
    { "profile_cinematic_title", "Kinolook" },
    { "profile_cinematic_desc",
      "Warme, filmähnliche Gradationskurve mit satten Schattendetails und sanfter "
      "Lichterkompression" },
    { "profile_custom_title", "Eigene Feinabstimmung" },
    { "profile_custom_desc",
      "Mitteltöne, Lichterkompression, Farbausdehnung und Hautschutz fein abstimmen" },

    // custom fine-tuning
    { "custom_sliders_title", "Parameter der Feinabstimmung" },
    { "custom_reset_defaults", "Standardwerte wiederherstellen" },

    // sliders
    { "slider_mid_target", "Grundwert der Mitteltöne" },
    { "slider_power_mid", "Mittenkontrast" },
    { "slider_power_hi", "Weichheit des Lichterverlaufs" },
    { "slider_chroma_boost", "Farbsättigung der Spitzlichter" },
    { "slider_skin_damp", "KI-Schutz natürlicher Hauttöne" },
    { "slider_max", "Max." },

    // drag and drop
    { "drop_hint_source", "Loslassen, um als Quellordner festzulegen" },
    { "drop_overlay_title", "Fotos oder Ordner hier ablegen" },
    { "drop_overlay_subtitle",
      "RAW/JPG-Ordner oder ausgewählte Fotodateien zum Laden hier ablegen" },
    { "drop_success_folder", "Quellordner geladen: %@" },
    { "drop_success_photos", "%d Fotos geladen: %@" },

    // filters
    { "filter_all", "Alle" },
    { "filter_success", "Erfolgreich" },
    { "filter_failed", "Fehlgeschlagen" },
    { "filter_tooltip", "Nach Status filtern" },
    { "filter_no_match", "Keine Fotos entsprechen dem aktuellen Filter" },
    { "filter_rating_all", "Alle Bewertungen" },
    { "filter_rating_1", "Ab 1 Stern" },
    { "filter_rating_2", "Ab 2 Sternen" },
    { "filter_rating_3", "Ab 3 Sternen" },
    { "filter_rating_4", "Ab 4 Sternen" },
    { "filter_rating_5", "Nur 5 Sterne" },

    // sorting
    { "sort_date", "Datum" },
    { "sort_peak_stops", "Max. Verstärkung" },
    { "sort_faces", "Gesichter" },
    { "sort_duration", "Dauer" },
    { "sort_name", "Name" },
    { "sort_tooltip", "Nach Attribut sortieren" },
    { "sort_asc", "Aufsteigend (klein nach groß)" },
    { "sort_desc", "Absteigend (groß nach klein)" },

    // compare window
    { "edr_sdr_banner_title", "⚠️ Aktuelles Display ist SDR (%@)" },
    { "edr_sdr_banner_desc",
      "Die maximale Leuchtdichte der Hardware liegt bei ca. 350 nits; Ultra-HDR-Spitzlichter mit "
      "1600 nits können physisch nicht dargestellt werden. Clipping-Schutz aktiv. Für volle "
      "Brillanz auf einem HDR-Display betrachten." },
    { "edr_sdr_screen_notice",
      "SDR-Bildschirm: Ultra-HDR-Spitzlichter können hier nicht in voller Helligkeit angezeigt "
      "werden." },
    { "edr_window_title", "HDR-Vergleich (geteilt)" },
    { "edr_badge_xdr", "Liquid Retina XDR: 1600 nits (EDR 4.0x)" },
    { "edr_badge_sdr", "Standarddisplay: 500 nits (SDR 1.0x)" },
    { "edr_label_sdr", "Kameraoriginal (SDR)" },
    { "edr_label_hdr", "Ultra HDR (Spitze 1600 nits)" },
    { "edr_drag_hint", "Regler ziehen zum Vergleichen • Leertaste zum Umschalten" },
    { "edr_mode_split", "Geteilte Ansicht" },
    { "edr_mode_hdr", "Nur Ultra HDR" },
    { "edr_mode_sdr", "Nur SDR" },
    { "edr_nav_prev", "Zurück (←)" },
    { "edr_nav_next", "Weiter (→)" },
    { "edr_zoom_hint",
      "Zoomen mit zwei Fingern oder Strg+Mausrad • Doppelklick: 100 % • Leertaste zum Umschalten • "
      "Tab für reine Ansicht" },
    // compare window: viewer tools
    { "edr_no_gl",
      "Der HDR-Betrachter braucht OpenGL, das auf diesem Bildschirm nicht verfügbar ist." },
    { "edr_loading", "Foto wird geladen…" },
    { "edr_sdr_from_hdr",
      "Kamera-JPEG fehlt: Links ist das eigene SDR-Bild der Ultra-HDR-Datei zu sehen." },
    { "edr_zebra_highlights", "Zebra für Lichter ab" },
    { "edr_zebra_shadows", "Zebra für Schatten unter" },
    { "edr_simulate_headroom", "Simulierter Spielraum" },
    { "edr_pixel_readout", "Pixel %d, %d   R %.3f  G %.3f  B %.3f   (%.2f LW)" },
    { "edr_share_copy_path", "Dateipfad kopieren" },
    { "edr_share_open", "Im Standardbetrachter öffnen" },

    // SDR render mode
    { "sdr_mode_label", "SDR-Darstellung:" },
    { "sdr_mode_natural_hint", "Standard: zeigt das saubere SDR-Basisbild ohne hartes Clipping" },
    { "sdr_mode_filmic_hint",
      "Filmische Roll-off-Kompression: zeigt Wolken und Strukturen in den Lichtern auch in SDR" },
    { "sdr_mode_natural", "Natürliches SDR" },
    { "sdr_mode_filmic", "Filmischer Roll-off" },

    // memory pressure
    { "pressure_normal", "🟢 Normal" },
    { "pressure_warning", "Erhöht (Drosselung)" },
    { "pressure_critical", "🔴 Kritisch" },

    // profile summary badges
    { "badge_mid", "Mitteltöne" },
    { "badge_power_mid", "Mittenkurve" },
    { "badge_power_hi", "Lichterkurve" },
    { "badge_chroma", "Chroma" },
    { "badge_skin_damp", "Hautschutz" },
    { "badge_scale", "Skalierung" },
    { "badge_mode", "Modus" },
    { "badge_sliders", "Regler" },
    { "badge_custom", "Individuell" },
    { "badge_finetuning", "Feinabstimmung" },

    // menus
    { "menu_settings", "Einstellungen..." },
    { "menu_folders", "Ordner" },
    { "menu_open_source", "Quellordner für Fotos auswählen..." },
    { "menu_open_dest", "Zielordner auswählen..." },
    { "menu_pipeline", "Verarbeitung" },
    { "menu_start_pipeline", "Stapelverarbeitung starten" },
    { "menu_stop_pipeline", "Verarbeitung stoppen" },
    { "menu_refresh_history", "Verlauf aktualisieren" },
    { "menu_check_updates", "Nach Updates suchen..." },

    // console messages
    { "log_volume_insufficient",
      "Ziellaufwerk hat nicht genügend freien Speicher oder ist nicht verfügbar: [%@]" },
    { "log_dry_run_activated",
      "Modo de simulación activado: escaneo rápido sin escritura en disco." },
    { "log_engine_start_failed", "Verarbeitungs-Engine konnte nicht gestartet werden: %@" },

    // tags
    { "tag_rating", "Bewertung" },

    // labels
    { "lbl_rating_filter", "Bewertungsfilter:" },
    { "lbl_rating_filter_help",
      "Nur Fotos verarbeiten, deren Sternebewertung mindestens der gewählten Anzahl entspricht" },

    // recipes
    { "recipes_title", "Meine Vorgabe-Rezepte" },
    { "recipes_section_my", "Meine Rezepte" },
    { "recipes_save_as", "Als Rezept speichern..." },
    { "recipes_save_dialog_title", "Als Vorgabe-Rezept speichern" },
    { "recipes_name_placeholder", "Rezeptname (z. B. Gegenlicht bei Sonnenuntergang)" },
    { "recipes_empty_hint",
      "Noch keine eigenen Rezepte. Passen Sie die Regler oben an und klicken Sie auf „Als Rezept "
      "speichern“, um Ihren persönlichen Stil zu sichern." },
    { "recipes_apply", "Anwenden" },
    { "recipes_applied", "Rezept geladen: %@" },
    { "recipes_rename", "Umbenennen" },
    { "recipes_rename_dialog_title", "Rezept umbenennen" },
    { "recipes_delete", "Löschen" },
    { "recipes_export_all", "Rezepte exportieren..." },
    { "recipes_import", "Rezepte importieren..." },
    { "recipes_imported_success", "%d Rezepte erfolgreich importiert!" },
    { "recipes_btn_save", "Speichern" },
    { "recipes_btn_cancel", "Abbrechen" },

    // export naming
    { "export_naming_title", "Dateibenennung & Unterordner beim Export" },
    { "export_naming_template", "Benennungsvorlage" },
    { "export_template_help",
      "Verfügbare Platzhalter: {original}, {profile}, {date}, {camera}, {rating}" },
    { "export_preview_label", "Live-Vorschau" },
    { "export_subfolder_rule", "Unterordner-Struktur" },

    // subfolder rules
    { "subfolder_rule_none", "Keine (direkt im Zielordner)" },
    { "subfolder_rule_by_date", "Nach Aufnahmedatum (JJJJ-MM-TT/)" },
    { "subfolder_rule_by_rating", "Nach Sternebewertung (5_Stars/, 4_Stars/)" },
    { "subfolder_rule_by_profile", "Nach Stilprofil (Portrait/, Landscape/)" },

    // inspector
    { "inspector_title", "Metadaten- & HDR-Inspektor" },
    { "inspector_sec_camera", "Kamera & Objektiv" },
    { "inspector_sec_exposure", "Belichtungseinstellungen" },
    { "inspector_aperture", "Blende" },
    { "inspector_shutter", "Verschlusszeit" },
    { "inspector_iso", "ISO" },
    { "inspector_focal_len", "Brennweite" },
    { "inspector_exp_bias", "Belichtungskorrektur" },
    { "inspector_sec_hdr", "Ultra-HDR-Physik & Gain Map" },
    { "inspector_peak_stops", "Maximaler Dynamikspielraum" },
    { "inspector_gainmap_spec", "Gain-Map-Standard" },
    { "inspector_faces_detected", "Erkannte Gesichter" },
    { "inspector_faces_count", "%d Gesichter (40 % Hautschutz)" },
    { "inspector_faces_none", "Keine (volle Dynamikanhebung)" },
    { "inspector_bayer_clip", "Clipping-Rate des Bayer-Sensors" },
    { "inspector_engine_version", "Algorithmus-Engine" },
    { "inspector_sec_file_display", "Datei & Anzeigefähigkeit" },
    { "inspector_resolution", "Auflösung" },
    { "inspector_filesize", "Dateigröße" },
    { "inspector_display_cap", "HDR-Spielraum des Displays" },

    // history columns
    { "col_peak_stops", "Max. Verstärkung" },
    { "col_exposure", "Belichtung" },
    { "col_camera_lens", "Kamera / Objektiv" },
    { "col_faces", "Gesichter" },
    { "col_bayer_clip", "Sensor-Clipping" },
    { "col_duration", "Dauer" },
    { "col_file_size", "Dateigröße" },
    { "col_date", "Datum" },
    { "col_status", "Status" },
    { "col_actions", "Aktionen" },

    // selection
    { "batch_selected_count", "%d ausgewählt" },

    // histogram
    { "hist_title", "HDR-Dynamikumfang-Histogramm" },
    { "hist_sdr", "SDR (0-100 nits)" },
    { "hist_edr", "XDR (100-1600 nits)" },
    { "hist_peak", "Spitzenleuchtdichte" },

    // history table, share menu and inspector (ui/history)
    { "history_delete_confirm_title", "%d Einträge aus dem Verlauf löschen?" },
    { "history_delete_confirm_desc",
      "Die Fotodateien bleiben auf der Festplatte; nur ihre Verlaufseinträge werden entfernt." },
    { "share_copy_image", "Bild kopieren" },
    { "share_copy_path", "Dateipfad kopieren" },
    { "share_open_default", "In Standardanwendung öffnen" },
    { "inspector_gainmap_none", "Keine Gain Map in dieser Datei" },
    { "inspector_gainmap_detail", "%@ · %.2f bis %.2f LW · %d Kanäle" },
    { "inspector_display_hdr", "HDR-Display (%.1fx)" },
    { "inspector_display_sdr", "Standard-SDR (1.0x)" },

    // donation sheet
    { "menu_sponsor", "Orvanta unterstützen & sponsern..." },
    { "donate_title", "Danke, dass Sie Orvanta verwenden" },
    { "donate_desc",
      "Orvanta wird von einem unabhängigen Entwickler gestaltet, dem Ihre Fotos genauso am Herzen "
      "liegen wie Ihnen. Jede Spende hilft, Orvanta kostenlos zu halten und aktiv "
      "weiterzuentwickeln. Vielen Dank für Ihre Unterstützung!" },
    { "donate_btn_open", "Spendenseite öffnen" },
    { "donate_btn_later", "Vielleicht später" },

    // update checks (app/UpdateAnnouncer, settings updates page)
    { "update_available_title", "Orvanta %@ ist verfügbar" },
    { "update_available_body",
      "Eine neue Version von Orvanta steht zum Download bereit. Installiert ist %@." },
    { "update_open_page", "Download-Seite öffnen" },
    { "update_later", "Später" },
    { "update_up_to_date_title", "Orvanta ist aktuell" },
    { "update_up_to_date_body", "Orvanta %@ ist die neueste verfügbare Version." },
    { "update_failed_title", "Die Suche nach Updates ist fehlgeschlagen" },
    { "update_failed_network",
      "Der Update-Server war nicht erreichbar. Prüfen Sie Ihre Internetverbindung und versuchen "
      "Sie es später erneut." },
    { "update_failed_feed", "Die Update-Informationen des Servers konnten nicht gelesen werden." },
    { "update_failed_signature",
      "Die Update-Informationen tragen keine gültige Signatur der Orvanta-Entwickler und wurden "
      "deshalb verworfen." },
    { "update_packaged_title", "Updates kommen über Ihre Paketverwaltung" },
    { "update_packaged_body",
      "Diese Orvanta-Installation stammt aus einem Paket Ihres Systems. Neue Versionen installiert "
      "Ihre Softwareverwaltung oder Paketverwaltung (zum Beispiel apt)." },
    { "update_packaged_note",
      "Diese Installation wird über die Paketverwaltung Ihres Systems aktualisiert." },
    // Label and value in one text, the colon as the language writes it
    { "metric_elapsed_value", "Laufzeit: %@" },
    { "hist_peak_value", "Spitzenleuchtdichte: %@" },
    // never lose work: quit question, missing engine
    { "quit_running_title", "Ein Stapel läuft noch" },
    { "quit_running_message",
      "Die Engine wandelt noch Fotos um. Beim Anhalten stellt sie das Foto in Arbeit noch fertig; "
      "bereits Erledigtes geht nicht verloren." },
    { "quit_stop_and_quit", "Stapel anhalten und beenden" },
    { "quit_when_done", "Nach dem Stapel beenden" },
    { "quit_keep_running", "Weiterlaufen lassen" },
    { "status_stopping_to_quit", "Stapel wird angehalten, danach wird beendet..." },
    { "env_engine_missing", "Engine nicht gefunden: %@" },
    { "env_engine_not_executable", "Engine ist nicht ausführbar: %@" },
    { "env_missing_libraries", "Fehlende Bibliotheken: %@" },
    { "log_engine_missing_start",
      "Start nicht möglich: keine Engine unter %@. Installieren Sie orvanta_engine oder setzen Sie "
      "ORVANTA_BIN auf ihren Pfad." },
    // recipe messages, engine version, singular forms of counts
    { "recipes_exported_success", "Rezepte erfolgreich exportiert!" },
    { "recipes_export_failed", "Rezepte konnten nicht exportiert werden: %@" },
    { "recipes_import_failed", "Rezepte konnten nicht importiert werden: %@" },
    { "inspector_peak_value", "+%.2f LW (%.1fx)" },
    { "history_row_success", "Erfolgreich" },
    { "history_row_failed", "Fehlgeschlagen" },
    { "inspector_engine_version_unknown", "Nicht verfügbar (Engine nicht gefunden)" },
    { "card_pairs_found#one", "%d Paar gefunden" },
    { "notif_batch_success_body#one", "%d Ultra-HDR-Foto in %.1f s erfolgreich erstellt." },
    { "history_all_loaded#one", "%d Foto geladen" },
    { "drop_success_photos#one", "%d Foto geladen: %@" },
    { "recipes_imported_success#one", "%d Rezept erfolgreich importiert!" },
    { "inspector_faces_count#one", "%d Gesicht (40 % Hautschutz)" },
    { "history_delete_confirm_title#one", "%d Eintrag aus dem Verlauf löschen?" },
    { "inspector_gainmap_detail#one", "%@ · %.2f bis %.2f LW · %d Kanal" },
    // History database locked by another program
    { "history_busy", "Der Verlauf ist gerade gesperrt, neuer Versuch läuft…" },
    // Batch: pause, nothing to do, failure list
    { "status_nothing_to_do", "Nichts zu verarbeiten: Keine passenden RAW+JPG-Paare gefunden" },
    { "status_paused", "Angehalten bei [%d / %d]" },
    { "status_resumed", "Fortgesetzt bei [%d / %d]" },
    { "btn_pause", "Pause" },
    { "btn_resume", "Fortsetzen" },
    { "menu_pause_pipeline", "Stapel anhalten oder fortsetzen" },
    { "card_paused", "Angehalten" },
    { "card_failed_count", "%d fehlgeschlagen" },
    { "btn_show_failures", "Fehler anzeigen" },
    { "failures_title", "Fehlgeschlagene Fotos" },
    { "failures_summary", "Im letzten Stapel nicht ausgeliefert: %d" },
    { "failures_column_photo", "Foto" },
    { "failures_column_reason", "Grund" },
    { "failures_no_reason", "Die Engine hat keinen Grund genannt" },
    { "failures_reveal", "Im Dateimanager zeigen" },
    { "failures_retry", "Fehlgeschlagene erneut versuchen" },
    { "failures_close", "Schließen" },
    // Name of a destination that is not a volume of its own
    { "volume_local_disk", "Lokaler Datenträger" },
    // Watching a folder after the batch
    { "opt_watch_folder", "Ordner weiter beobachten" },
    { "opt_watch_folder_help",
      "Nach dem Stapel jedes neue RAW+JPG-Paar umwandeln, sobald es eintrifft (für Tethered "
      "Shooting), bis Sie auf „Verarbeitung stoppen“ klicken" },
    { "card_watching", "%@ wird beobachtet" },
    { "card_watch_lost_title", "Warte auf den Ordner" },
    { "card_watch_count", "%d Fotos seit dem Start umgewandelt" },
    { "card_watch_count#one", "%d Foto seit dem Start umgewandelt" },
    { "card_watch_last", "Letztes Foto: %@" },
    { "card_watch_lost",
      "Der beobachtete Ordner ist verschwunden (verschoben oder gelöscht). Warte, bis er wieder da "
      "ist …" },
    { "card_watch_lost_unmounted",
      "Das Laufwerk mit dem beobachteten Ordner wurde entfernt. Warte, bis es wieder da ist …" },
    { "status_watching", "%@ wird auf neue Fotos beobachtet" },
    // What made a photo fail, as the failure list says it
    { "failure_jpg_unreadable", "Das Kamera-JPG kann nicht gelesen werden" },
    { "failure_raw_unreadable", "Die RAW-Datei kann nicht gelesen werden" },
    { "failure_colour_unmatched",
      "Das JPG passt nicht zu den Farben der RAW-Datei, daher wurde keine HDR-Fassung erstellt" },
    { "failure_encode_failed", "Die Ultra-HDR-Datei konnte nicht erstellt werden" },
    { "failure_write_failed", "Das Ergebnis konnte nicht im Zielordner gespeichert werden" },
    { "failure_destination_gone", "Der Zielordner ist während des Stapels verschwunden" },
};
} // namespace

std::span<const StringEntry> de()
{
    return kEntries;
}

} // namespace orvanta::strings
