// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// French texts.
#include "i18n/StringTables.h"

namespace orvanta::strings {
namespace {
constexpr StringEntry kEntries[] = {
    // app
    { "app_title", "Orvanta" },
    { "app_subtitle", "Automatisation professionnelle de la photographie Ultra HDR" },

    // status line
    { "status_env_ready", "Environnement prêt" },
    { "status_env_missing", "Dépendances manquantes" },
    { "status_ready", "Prêt" },
    { "status_processing", "Procesando..." },
    { "status_failed", "Fallido" },
    { "status_scanning", "Analyse des photos sources..." },
    { "status_scan_done", "Analyse terminée : %d en attente" },
    { "status_processing_item", "Traitement [%d/%d] %@..." },
    { "status_item_completed", "Terminé [%d/%d] %@ (+%.2f IL)" },
    { "status_item_failed", "Échec [%d/%d] %@" },
    { "status_batch_completed", "Lot terminé (réussites : %d, échecs : %d)" },
    { "status_all_up_to_date",
      "Toutes les photos sont déjà à jour (%d ignorées, aucun fichier en attente)" },
    { "status_cancelled", "Annulé par l'utilisateur" },
    { "status_cancelling", "Arrêt en cours..." },
    { "status_dryrun_completed",
      "Simulation terminée : %d au total, %d en attente, %d ignorée(s)" },
    { "status_abnormal", "Arrêt anormal (code de sortie %d)" },

    // tabs
    { "tab_live_run", "Traitement en cours" },
    { "tab_history", "Historique et quarantaine" },

    // footer
    { "footer_storage_safe", "%@ monté et en bon état (%.1f Go libres)" },

    // notifications
    { "notif_batch_completed_title", "Traitement par lot terminé" },
    { "notif_action_open_folder", "Afficher dans le gestionnaire de fichiers" },
    { "notif_batch_success_body", "%d photos Ultra HDR livrées avec succès en %.1f s." },
    { "notif_batch_failed_body", "%d réussies, %d en échec." },

    // folder bar
    { "folder_source_title", "Dossier source" },
    { "folder_source_placeholder", "Sélectionnez le dossier source RAW+JPG" },
    { "folder_dest_title", "Dossier de livraison" },
    { "folder_dest_placeholder", "Sélectionnez le dossier de destination Ultra HDR" },

    // buttons
    { "btn_browse", "Parcourir..." },
    { "btn_start_batch", "Lancer le lot" },
    { "btn_stop", "Arrêter le traitement" },
    { "btn_refresh", "Actualiser" },
    { "btn_settings", "Préférences (Ctrl+,)" },
    { "btn_done", "Terminé" },
    { "btn_custom_columns", "Personnaliser les colonnes" },
    { "btn_select_all", "Tout sélectionner" },
    { "btn_deselect_all", "Tout désélectionner" },
    { "btn_batch_delete", "Supprimer la sélection" },
    { "btn_batch_reprocess", "Retraiter la sélection" },
    { "btn_toggle_console", "Journal de la console" },
    { "btn_clear_console", "Effacer la console" },
    { "btn_xdr_compare_pill", "Comparer HDR" },
    { "btn_zebra", "Zébras (Z)" },
    { "btn_histogram", "Histogramme (H)" },
    { "btn_check_now", "Vérifier maintenant" },
    { "btn_close", "Fermer" },
    { "btn_ok", "OK" },

    // dialogs
    { "dialog_select_folder", "Sélectionner un dossier" },
    { "dialog_error_title", "Détails de l'erreur de quarantaine" },
    { "dialog_ok", "OK" },
    { "dialog_file_missing_title", "Foto no encontrada en el disco" },
    { "dialog_file_missing_desc",
      "El archivo [%@] se ha movido, renombrado o eliminado de su ubicación original." },

    // batch options
    { "opt_force_reprocess", "Forcer le retraitement" },
    { "opt_force_reprocess_help",
      "Ignorer l'historique de la base de données et régénérer toutes les photos" },
    { "opt_backlit_fill", "Débouchage IA en contre-jour" },
    { "opt_backlit_fill_help",
      "Éclaircit en douceur les visages et les sujets dans l'ombre en contre-jour, tout en "
      "préservant l'arrière-plan lumineux" },
    { "opt_dry_run", "Mode simulation" },
    { "opt_dry_run_help",
      "Analyse le dossier source et indique ce qui serait traité, sans écrire aucun fichier" },
    { "opt_single_stem", "Cible unique :" },
    { "opt_single_stem_placeholder", "ex. DSC04223 (facultatif)" },

    // progress card
    { "card_processing", "Traitement du lot" },
    { "card_idle", "Inactif" },
    { "card_pairs_found", "%d paires trouvées" },
    { "card_progress_ratio", "[%d / %d]  %d%%" },
    // main window: time left in the running batch, quitting
    { "card_time_left", "encore %@" },
    { "menu_quit", "Quitter Orvanta" },

    // progress metrics
    { "metric_faces", "Visages : %d" },
    { "metric_peak_gain", "Gain de crête : +%.2f IL" },
    { "metric_bayer_clip", "Écrêtage capteur : %.3f %%" },
    { "metric_duration", "Temps écoulé : %.1f s" },
    { "metric_elapsed", "Temps écoulé" },
    { "metric_throughput_speed", "%.1f s / photo" },

    // console
    { "console_title", "Console en direct" },
    { "console_auto_scroll", "Défilement auto" },
    { "console_clear", "Effacer" },
    { "console_waiting", "En attente de la sortie du moteur..." },
    { "console_copy_all", "Tout copier" },
    { "console_copied", "Copié !" },

    // dashboard figures
    { "kpi_total_processed", "Total traité" },
    { "kpi_success_delivered", "Réussies / livrées" },
    { "kpi_quarantine_failed", "Quarantaine / échecs" },
    { "kpi_avg_duration", "Durée moy." },

    // units
    { "unit_photos", "Photos" },
    { "unit_ultra_hdr", "Ultra HDR" },
    { "unit_attention_needed", "À vérifier" },
    { "unit_sec_per_photo", "s / photo" },
    { "unit_faces", "%d visages" },

    // history
    { "history_search_placeholder", "Rechercher un nom de photo (ex. DSC04223)..." },
    { "history_empty", "Aucun historique de traitement" },
    { "history_loading_more", "Chargement d'autres photos..." },
    { "history_all_loaded", "Les %d photos sont chargées" },

    // errors
    { "error_unknown", "Erreur inconnue" },

    // actions
    { "action_reveal_finder", "Afficher dans le gestionnaire de fichiers" },
    { "action_quicklook", "Aperçu rapide (Espace)" },
    { "action_file_offline", "Fichier hors ligne" },
    { "action_view_error", "Voir les détails de l'erreur" },
    { "action_switch_language", "Changer de langue" },
    { "action_edr_compare", "Comparaison HDR scindée" },
    { "action_airdrop", "Envoyer par e-mail" },
    { "action_share_sheet", "Partager…" },
    { "action_inspector", "Ouvrir l'inspecteur de métadonnées..." },

    // settings window
    { "settings_title", "Préférences" },
    { "settings_tab_perf", "Performances" },
    { "settings_tab_paths", "Chemins" },
    { "settings_tab_safety", "Sécurité et diagnostic" },
    { "settings_tab_styles", "Préréglages de style" },
    { "settings_workers_label", "Processus de traitement simultanés" },
    { "settings_workers_auto", "Auto (adaptatif)" },
    { "settings_workers_1", "1 processus (éco)" },
    { "settings_workers_2", "2 processus (équilibré)" },
    { "settings_workers_3", "3 processus (rapide)" },
    { "settings_workers_4", "4 processus (élevé)" },
    { "settings_workers_6", "6 processus (rafale)" },
    { "settings_workers_8", "8 processus (maximum)" },
    { "settings_workers_desc",
      "En mode Auto, le moteur choisit le nombre de processus parallèles en fonction des cœurs de "
      "processeur et de la mémoire disponibles. Avec davantage de processus, un lot se termine "
      "plus vite, mais la consommation de mémoire augmente." },
    { "settings_throttle_label", "Limitation dynamique selon la pression mémoire" },
    { "settings_throttle_desc",
      "Ralentit le moteur lorsque le système manque de mémoire, afin que les longs lots restent "
      "stables au lieu de basculer sur la mémoire d'échange." },
    { "settings_probe_title", "Sonde matériel et mémoire en direct" },
    { "settings_canary_label", "Protection contre la déconnexion du stockage externe" },
    { "settings_canary_desc",
      "Arrête le lot en toute sécurité si le disque de destination est déconnecté ou manque "
      "d'espace libre pendant l'exportation." },
    { "settings_masks_label", "Exporter les masques de débogage et les cartes de gain" },
    { "settings_sound_label", "Son de notification de fin de lot" },
    { "settings_sound_desc", "Émettre un son avec la notification à la fin d'un lot." },
    { "settings_btn_open_logs", "Afficher les journaux dans le gestionnaire de fichiers" },
    { "settings_btn_open_db", "Afficher la base d'état dans le gestionnaire de fichiers" },
    { "settings_core_hardened",
      "Cœur renforcé : le moteur s'exécute dans son propre processus, et chaque photo terminée est "
      "enregistrée dans la base de données d'état." },
    { "settings_styles_desc",
      "Choisissez un profil de rendu Ultra HDR adapté à votre genre photographique. Le profil "
      "sélectionné s'appliquera à tous les lots suivants." },
    { "settings_diagnostics_title", "Diagnostic système et journaux" },
    { "settings_probe_refresh_help", "Actualiser les mesures du matériel et de la mémoire" },
    { "settings_probe_ram", "RAM physique" },
    { "settings_probe_arch", "Architecture" },
    { "settings_probe_pressure", "Pression mémoire" },
    { "settings_default_source_dir", "Dossier des photos sources par défaut" },
    { "settings_default_dest_dir", "Dossier de sortie Ultra HDR par défaut" },
    { "settings_tab_updates", "Mises à jour" },
    { "settings_updates_title", "Mises à jour logicielles" },
    { "settings_auto_check", "Rechercher automatiquement les mises à jour" },
    { "settings_auto_check_desc",
      "Orvanta recherche une nouvelle version une fois par jour et vous prévient dès qu'elle est "
      "disponible." },
    { "settings_manual_check", "Vérification manuelle" },
    { "settings_manual_check_desc", "Rechercher dès maintenant une nouvelle version d'Orvanta." },
    { "settings_tab_about", "À propos et mentions légales" },
    { "settings_about_tagline",
      "Transforme vos paires RAW+JPG en superbes photos Ultra HDR, prêtes pour tous les écrans "
      "HDR." },
    { "settings_about_engine_badge", "Propulsé par le moteur Orvanta Ultra HDR" },
    { "settings_about_ack_title", "Remerciements" },
    { "settings_about_ack_desc",
      "Orvanta repose sur ces projets open source. Un grand merci à leurs auteurs et à leurs "
      "communautés." },
    // settings window: naming template warnings and the updates page
    { "export_warning_forbidden_chars", "Caractères interdits dans les noms de fichiers : %@" },
    { "export_warning_unknown_placeholders", "Variables inconnues, recopiées telles quelles : %@" },
    { "settings_updates_unavailable",
      "La recherche de mises à jour n'est pas configurée dans cette version d'Orvanta." },

    // style presets
    { "style_profile_title", "Préréglage de style" },

    // style profiles
    { "profile_default_title", "Par défaut (fidèle)" },
    { "profile_default_desc",
      "Transition fidèle des hautes lumières et contraste équilibré, avec une plage dynamique "
      "naturelle" },
    { "profile_portrait_title", "Portrait doux" },
    { "profile_portrait_desc",
      "Transitions spéculaires douces et carnations lumineuses et naturelles sous un éclairage "
      "dur" },
    { "profile_landscape_title", "Paysage percutant" },
    { "profile_landscape_desc",
      "Microcontraste renforcé et éclat spéculaire pour des scènes vives et percutantes" },
    { "profile_cinematic_title", "Cinéma argentique" },
    { "profile_cinematic_desc",
      "Courbe tonale argentique chaude, ombres riches en détails et compression douce des hautes "
      "lumières" },
    { "profile_custom_title", "Réglage fin personnalisé" },
    { "profile_custom_desc",
      "Ajustez finement les tons moyens, la compression des hautes lumières, l'expansion de la "
      "chrominance et la protection de la peau" },

    // custom fine-tuning
    { "custom_sliders_title", "Paramètres de réglage fin" },
    { "custom_reset_defaults", "Rétablir les valeurs par défaut" },

    // sliders
    { "slider_mid_target", "Niveau de base des tons moyens" },
    { "slider_power_mid", "Contraste des tons moyens" },
    { "slider_power_hi", "Douceur de transition des hautes lumières" },
    { "slider_chroma_boost", "Saturation des reflets spéculaires" },
    { "slider_skin_damp", "Protection naturelle des carnations (IA)" },
    { "slider_max", "Max" },

    // drag and drop
    { "drop_hint_source", "Relâchez pour en faire le dossier des photos sources" },
    { "drop_overlay_title", "Déposez des photos ou des dossiers ici" },
    { "drop_overlay_subtitle",
      "Déposez des dossiers RAW/JPG ou des fichiers photo sélectionnés pour les charger" },
    { "drop_success_folder", "Dossier source chargé : %@" },
    { "drop_success_photos", "%d photos chargées : %@" },

    // filters
    { "filter_all", "Toutes" },
    { "filter_success", "Réussies" },
    { "filter_failed", "Échecs" },
    { "filter_tooltip", "Filtrer par statut" },
    { "filter_no_match", "Aucune photo ne correspond au filtre actuel" },
    { "filter_rating_all", "Toutes les notes" },
    { "filter_rating_1", "1 étoile et plus" },
    { "filter_rating_2", "2 étoiles et plus" },
    { "filter_rating_3", "3 étoiles et plus" },
    { "filter_rating_4", "4 étoiles et plus" },
    { "filter_rating_5", "5 étoiles uniquement" },

    // sorting
    { "sort_date", "Date" },
    { "sort_peak_stops", "Gain de crête" },
    { "sort_faces", "Visages" },
    { "sort_duration", "Durée" },
    { "sort_name", "Nom" },
    { "sort_tooltip", "Trier par attribut" },
    { "sort_asc", "Croissant (du plus petit au plus grand)" },
    { "sort_desc", "Décroissant (du plus grand au plus petit)" },

    // compare window
    { "edr_sdr_banner_title", "⚠️ L'écran actuel est SDR (%@)" },
    { "edr_sdr_banner_desc",
      "La luminance maximale de cet écran est d'environ 350 nits : il ne peut pas restituer "
      "physiquement les hautes lumières Ultra HDR à 1600 nits. Anti-écrêtage actif. Affichez "
      "l'image sur un écran HDR pour profiter de tout son éclat." },
    { "edr_sdr_screen_notice",
      "Écran SDR : les hautes lumières Ultra HDR ne peuvent pas être affichées ici à pleine "
      "luminosité." },
    { "edr_window_title", "Comparaison HDR scindée" },
    { "edr_badge_xdr", "Liquid Retina XDR: 1600 nits (EDR 4.0x)" },
    { "edr_badge_sdr", "Écran standard : 500 nits (SDR 1.0x)" },
    { "edr_label_sdr", "Original de l'appareil (SDR)" },
    { "edr_label_hdr", "Ultra HDR (crête à 1600 nits)" },
    { "edr_drag_hint", "Faites glisser le curseur pour comparer • Espace pour basculer" },
    { "edr_mode_split", "Vue scindée" },
    { "edr_mode_hdr", "Ultra HDR seul" },
    { "edr_mode_sdr", "SDR seul" },
    { "edr_nav_prev", "Précédente (←)" },
    { "edr_nav_next", "Suivante (→)" },
    { "edr_zoom_hint",
      "Pincez ou Ctrl+molette pour zoomer • Double-clic : 100 % • Espace pour basculer • Tab pour "
      "la vue épurée" },
    // compare window: viewer tools
    { "edr_no_gl", "La visionneuse HDR nécessite OpenGL, qui n'est pas disponible sur cet écran." },
    { "edr_loading", "Chargement de la photo…" },
    { "edr_sdr_from_hdr",
      "JPEG de l'appareil absent : la partie gauche montre l'image SDR propre au fichier Ultra "
      "HDR." },
    { "edr_zebra_highlights", "Zébras des hautes lumières dès" },
    { "edr_zebra_shadows", "Zébras des ombres sous" },
    { "edr_simulate_headroom", "Marge dynamique simulée" },
    { "edr_pixel_readout", "Pixel %d, %d   R %.3f  V %.3f  B %.3f   (%.2f IL)" },
    { "edr_share_copy_path", "Copier le chemin du fichier" },
    { "edr_share_open", "Ouvrir dans la visionneuse par défaut" },

    // SDR render mode
    { "sdr_mode_label", "Mode de rendu SDR :" },
    { "sdr_mode_natural_hint",
      "Standard : affiche l'image SDR de base, propre et sans écrêtage brutal" },
    { "sdr_mode_filmic_hint",
      "Compression filmique des hautes lumières : fait ressortir les nuages et la texture des "
      "hautes lumières en SDR" },
    { "sdr_mode_natural", "SDR naturel" },
    { "sdr_mode_filmic", "Transition filmique" },

    // memory pressure
    { "pressure_normal", "🟢 Normale" },
    { "pressure_warning", "Élevée (limitation)" },
    { "pressure_critical", "🔴 Critique" },

    // profile summary badges
    { "badge_mid", "Tons moy." },
    { "badge_power_mid", "Puiss. moy." },
    { "badge_power_hi", "Puiss. hautes lum." },
    { "badge_chroma", "Chroma" },
    { "badge_skin_damp", "Atténuation peau" },
    { "badge_scale", "Échelle" },
    { "badge_mode", "Mode" },
    { "badge_sliders", "Curseurs" },
    { "badge_custom", "Personnalisé" },
    { "badge_finetuning", "Réglage fin" },

    // menus
    { "menu_settings", "Préférences..." },
    { "menu_folders", "Dossiers" },
    { "menu_open_source", "Choisir le dossier des photos sources..." },
    { "menu_open_dest", "Choisir le dossier de destination..." },
    { "menu_pipeline", "Traitement" },
    { "menu_start_pipeline", "Lancer le traitement par lot" },
    { "menu_stop_pipeline", "Arrêter le traitement" },
    { "menu_refresh_history", "Actualiser l'historique" },
    { "menu_check_updates", "Rechercher des mises à jour..." },

    // console messages
    { "log_volume_insufficient",
      "Le volume de stockage cible manque d'espace ou est indisponible : [%@]" },
    { "log_dry_run_activated",
      "Modo de simulación activado: escaneo rápido sin escritura en disco." },
    { "log_engine_start_failed", "Impossible de démarrer le moteur de traitement : %@" },

    // tags
    { "tag_rating", "Note" },

    // labels
    { "lbl_rating_filter", "Filtre de note :" },
    { "lbl_rating_filter_help",
      "Ne traiter que les photos dont la note est égale ou supérieure au nombre d'étoiles "
      "sélectionné" },

    // recipes
    { "recipes_title", "Mes recettes de préréglages" },
    { "recipes_section_my", "Mes recettes" },
    { "recipes_save_as", "Enregistrer comme recette..." },
    { "recipes_save_dialog_title", "Enregistrer comme recette de préréglage" },
    { "recipes_name_placeholder", "Nom de la recette (ex. Contre-jour au couchant)" },
    { "recipes_empty_hint",
      "Aucune recette personnalisée pour l'instant. Ajustez les curseurs ci-dessus et cliquez sur "
      "« Enregistrer comme recette » pour conserver votre style." },
    { "recipes_apply", "Appliquer" },
    { "recipes_applied", "Recette chargée : %@" },
    { "recipes_rename", "Renommer" },
    { "recipes_rename_dialog_title", "Renommer la recette" },
    { "recipes_delete", "Supprimer" },
    { "recipes_export_all", "Exporter les recettes..." },
    { "recipes_import", "Importer des recettes..." },
    { "recipes_imported_success", "%d recettes importées avec succès !" },
    { "recipes_btn_save", "Enregistrer" },
    { "recipes_btn_cancel", "Annuler" },

    // export naming
    { "export_naming_title", "Nommage à l'export et organisation en sous-dossiers" },
    { "export_naming_template", "Modèle de nom" },
    { "export_template_help",
      "Variables disponibles : {original}, {profile}, {date}, {camera}, {rating}" },
    { "export_preview_label", "Aperçu en direct" },
    { "export_subfolder_rule", "Organisation en sous-dossiers" },

    // subfolder rules
    { "subfolder_rule_none", "Aucune (tout dans le dossier de destination)" },
    { "subfolder_rule_by_date", "Par date de prise de vue (AAAA-MM-JJ/)" },
    { "subfolder_rule_by_rating", "Par note (5_Stars/, 4_Stars/)" },
    { "subfolder_rule_by_profile", "Par profil de style (Portrait/, Landscape/)" },

    // inspector
    { "inspector_title", "Inspecteur de métadonnées et HDR" },
    { "inspector_sec_camera", "Boîtier et objectif" },
    { "inspector_sec_exposure", "Paramètres d'exposition" },
    { "inspector_aperture", "Ouverture" },
    { "inspector_shutter", "Vitesse d'obturation" },
    { "inspector_iso", "ISO" },
    { "inspector_focal_len", "Focale" },
    { "inspector_exp_bias", "Correction d'exposition" },
    { "inspector_sec_hdr", "Physique Ultra HDR et carte de gain" },
    { "inspector_peak_stops", "Marge dynamique maximale" },
    { "inspector_gainmap_spec", "Norme de carte de gain" },
    { "inspector_faces_detected", "Visages détectés" },
    { "inspector_faces_count", "%d visages (atténuation de la peau : 40 %)" },
    { "inspector_faces_none", "Aucun (amplification dynamique complète)" },
    { "inspector_bayer_clip", "Taux d'écrêtage du capteur Bayer" },
    { "inspector_engine_version", "Moteur algorithmique" },
    { "inspector_sec_file_display", "Fichier et capacités d'affichage" },
    { "inspector_resolution", "Résolution" },
    { "inspector_filesize", "Taille du fichier" },
    { "inspector_display_cap", "Marge dynamique de l'écran" },

    // history columns
    { "col_peak_stops", "Gain de crête" },
    { "col_exposure", "Exposition" },
    { "col_camera_lens", "Boîtier / objectif" },
    { "col_faces", "Visages" },
    { "col_bayer_clip", "Écrêtage capteur" },
    { "col_duration", "Durée" },
    { "col_file_size", "Taille" },
    { "col_date", "Date" },
    { "col_status", "Statut" },
    { "col_actions", "Actions" },

    // selection
    { "batch_selected_count", "%d sélectionnées" },

    // histogram
    { "hist_title", "Histogramme de plage dynamique HDR" },
    { "hist_sdr", "SDR (0-100 nits)" },
    { "hist_edr", "XDR (100-1600 nits)" },
    { "hist_peak", "Luminance de crête" },

    // history table, share menu and inspector (ui/history)
    { "history_delete_confirm_title", "Supprimer %d entrées de l'historique ?" },
    { "history_delete_confirm_desc",
      "Les fichiers photo restent sur le disque ; seules leurs entrées d'historique sont "
      "supprimées." },
    { "share_copy_image", "Copier l'image" },
    { "share_copy_path", "Copier le chemin du fichier" },
    { "share_open_default", "Ouvrir dans l'application par défaut" },
    { "inspector_gainmap_none", "Aucune carte de gain dans ce fichier" },
    { "inspector_gainmap_detail", "%@ · %.2f à %.2f IL · %d canaux" },
    { "inspector_display_hdr", "Écran HDR (%.1fx)" },
    { "inspector_display_sdr", "SDR standard (1.0x)" },

    // donation sheet
    { "menu_sponsor", "Soutenir et parrainer Orvanta..." },
    { "donate_title", "Merci d'utiliser Orvanta" },
    { "donate_desc",
      "Orvanta est conçu par un développeur indépendant qui tient à vos photos autant que vous. "
      "Chaque don aide à garder Orvanta gratuit et activement développé. Merci pour votre "
      "soutien !" },
    { "donate_btn_open", "Ouvrir la page de don" },
    { "donate_btn_later", "Plus tard" },

    // update checks (app/UpdateAnnouncer, settings updates page)
    { "update_available_title", "Orvanta %@ est disponible" },
    { "update_available_body",
      "Une nouvelle version d'Orvanta est prête à être téléchargée. Vous utilisez la version %@." },
    { "update_open_page", "Ouvrir la page de téléchargement" },
    { "update_later", "Plus tard" },
    { "update_up_to_date_title", "Orvanta est à jour" },
    { "update_up_to_date_body", "Orvanta %@ est la version la plus récente." },
    { "update_failed_title", "La recherche de mises à jour a échoué" },
    { "update_failed_network",
      "Le serveur de mises à jour est injoignable. Vérifiez votre connexion Internet et réessayez "
      "plus tard." },
    { "update_failed_feed",
      "Les informations de mise à jour envoyées par le serveur sont illisibles." },
    { "update_failed_signature",
      "Les informations de mise à jour ne portent pas de signature valide des développeurs "
      "d'Orvanta ; elles ont donc été ignorées." },
    { "update_packaged_title", "Les mises à jour passent par votre gestionnaire de paquets" },
    { "update_packaged_body",
      "Cette installation d'Orvanta provient d'un paquet de votre système. Votre logithèque ou "
      "votre gestionnaire de paquets (apt, par exemple) en installe les nouvelles versions." },
    { "update_packaged_note",
      "Cette installation est mise à jour par le gestionnaire de paquets de votre système." },
    // Label and value in one text, the colon as the language writes it
    { "metric_elapsed_value", "Temps écoulé : %@" },
    { "hist_peak_value", "Luminance de crête : %@" },
    // never lose work: quit question, missing engine
    { "quit_running_title", "Un lot est encore en cours" },
    { "quit_running_message",
      "Le moteur convertit encore des photos. En l’arrêtant, il termine d’abord la photo en "
      "cours ; rien de ce qui est déjà fait n’est perdu." },
    { "quit_stop_and_quit", "Arrêter le lot et quitter" },
    { "quit_when_done", "Quitter à la fin du lot" },
    { "quit_keep_running", "Laisser tourner" },
    { "status_stopping_to_quit", "Arrêt du lot, puis fermeture..." },
    { "env_engine_missing", "Moteur introuvable : %@" },
    { "env_engine_not_executable", "Le moteur n’est pas exécutable : %@" },
    { "env_missing_libraries", "Bibliothèques manquantes : %@" },
    { "log_engine_missing_start",
      "Démarrage impossible : aucun moteur à l’emplacement %@. Installez orvanta_engine ou "
      "indiquez son chemin dans ORVANTA_BIN." },
    // recipe messages, engine version, singular forms of counts
    { "recipes_exported_success", "Recettes exportées avec succès !" },
    { "recipes_export_failed", "Échec de l’export des recettes : %@" },
    { "recipes_import_failed", "Échec de l’import des recettes : %@" },
    { "inspector_peak_value", "+%.2f IL (%.1fx)" },
    { "history_row_success", "Réussie" },
    { "history_row_failed", "Échec" },
    { "inspector_engine_version_unknown", "Indisponible (moteur introuvable)" },
    { "card_pairs_found#one", "%d paire trouvée" },
    { "notif_batch_success_body#one", "%d photo Ultra HDR livrée avec succès en %.1f s." },
    { "notif_batch_failed_body#one", "%d réussie, %d en échec." },
    { "status_all_up_to_date#one",
      "Toutes les photos sont déjà à jour (%d ignorée, aucun fichier en attente)" },
    { "history_all_loaded#one", "%d photo chargée" },
    { "drop_success_photos#one", "%d photo chargée : %@" },
    { "recipes_imported_success#one", "%d recette importée avec succès !" },
    { "inspector_faces_count#one", "%d visage (atténuation de la peau : 40 %)" },
    { "batch_selected_count#one", "%d sélectionnée" },
    { "history_delete_confirm_title#one", "Supprimer %d entrée de l'historique ?" },
    { "inspector_gainmap_detail#one", "%@ · %.2f à %.2f IL · %d canal" },
    // History database locked by another program
    { "history_busy", "L'historique est occupé, nouvelle tentative en cours…" },
    // Batch: pause, nothing to do, failure list
    { "status_nothing_to_do", "Rien à traiter : aucune paire RAW+JPG correspondante trouvée" },
    { "status_paused", "En pause à [%d / %d]" },
    { "status_resumed", "Reprise à [%d / %d]" },
    { "btn_pause", "Pause" },
    { "btn_resume", "Reprendre" },
    { "menu_pause_pipeline", "Suspendre ou reprendre le lot" },
    { "card_paused", "En pause" },
    { "card_failed_count", "%d en échec" },
    { "btn_show_failures", "Voir les échecs" },
    { "failures_title", "Photos en échec" },
    { "failures_summary", "Non livrées lors du dernier lot : %d" },
    { "failures_column_photo", "Photo" },
    { "failures_column_reason", "Motif" },
    { "failures_no_reason", "Le moteur n’a indiqué aucun motif" },
    { "failures_reveal", "Afficher dans Fichiers" },
    { "failures_retry", "Réessayer les échecs" },
    { "failures_close", "Fermer" },
    // Name of a destination that is not a volume of its own
    { "volume_local_disk", "Disque local" },
    // Watching a folder after the batch
    { "opt_watch_folder", "Continuer à surveiller le dossier" },
    { "opt_watch_folder_help",
      "Après le lot, convertir chaque nouvelle paire RAW+JPG dès son arrivée (prise de vue "
      "connectée) jusqu’à ce que vous cliquiez sur « Arrêter le traitement »" },
    { "card_watching", "Surveillance de %@" },
    { "card_watch_lost_title", "En attente du dossier" },
    { "card_watch_count", "%d photos converties depuis le début" },
    { "card_watch_count#one", "%d photo convertie depuis le début" },
    { "card_watch_last", "Dernière photo : %@" },
    { "card_watch_lost",
      "Le dossier surveillé a disparu (déplacé ou supprimé). En attente de son retour…" },
    { "card_watch_lost_unmounted",
      "Le disque contenant le dossier surveillé a été retiré. En attente de son retour…" },
    { "status_watching", "Surveillance de %@ en attente de nouvelles photos" },
    // What made a photo fail, as the failure list says it
    { "failure_jpg_unreadable", "Le JPG de l’appareil est illisible" },
    { "failure_raw_unreadable", "Le fichier RAW est illisible" },
    { "failure_colour_unmatched",
      "Le JPG ne correspond pas aux couleurs du RAW : aucune version HDR n’a été créée" },
    { "failure_encode_failed", "Le fichier Ultra HDR n’a pas pu être créé" },
    { "failure_write_failed",
      "Le résultat n’a pas pu être enregistré dans le dossier de destination" },
    { "failure_destination_gone", "Le dossier de destination a disparu pendant le lot" },
};
} // namespace

std::span<const StringEntry> fr()
{
    return kEntries;
}

} // namespace orvanta::strings
