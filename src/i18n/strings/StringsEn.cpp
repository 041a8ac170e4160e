// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// English texts: the reference table every other language is checked against.
#include "i18n/StringTables.h"

namespace orvanta::strings {
namespace {
constexpr StringEntry kEntries[] = {
    // app
    { "app_title", "Orvanta" },
    { "app_subtitle", "Professional Ultra HDR Photography Automation" },

    // status line
    { "status_env_ready", "Environment Ready" },
    { "status_env_missing", "Missing Dependencies" },
    { "status_ready", "Ready" },
    { "status_processing", "Procesando..." },
    { "status_failed", "Fallido" },
    { "status_scanning", "Scanning source photos..." },
    { "status_scan_done", "Scan complete: %d pending" },
    { "status_processing_item", "Processing [%d/%d] %@..." },
    { "status_item_completed", "Completed [%d/%d] %@ (+%.2fst)" },
    { "status_item_failed", "Failed [%d/%d] %@" },
    { "status_batch_completed", "Batch completed (Success: %d, Failed: %d)" },
    { "status_all_up_to_date", "All items are already up-to-date (skipped %d, no pending files)" },
    { "status_cancelled", "Cancelled by user" },
    { "status_cancelling", "Stopping..." },
    { "status_dryrun_completed", "Dry-Run simulated: %d total, %d pending, %d skipped" },
    { "status_abnormal", "Terminated abnormally (Exit code %d)" },

    // tabs
    { "tab_live_run", "Live Batch" },
    { "tab_history", "History & Quarantine" },

    // footer
    { "footer_storage_safe", "%@ Mounted & Healthy (%.1f GB free)" },

    // notifications
    { "notif_batch_completed_title", "Batch Processing Completed" },
    { "notif_action_open_folder", "Show in File Manager" },
    { "notif_batch_success_body", "Successfully delivered %d Ultra HDR photos in %.1fs." },
    { "notif_batch_failed_body", "%d succeeded, %d failed." },

    // folder bar
    { "folder_source_title", "Source Directory" },
    { "folder_source_placeholder", "Select RAW+JPG source directory" },
    { "folder_dest_title", "Delivery Directory" },
    { "folder_dest_placeholder", "Select Ultra HDR destination directory" },

    // buttons
    { "btn_browse", "Browse..." },
    { "btn_start_batch", "Start Batch" },
    { "btn_stop", "Stop Processing" },
    { "btn_refresh", "Refresh" },
    { "btn_settings", "Preferences (Ctrl+,)" },
    { "btn_done", "Done" },
    { "btn_custom_columns", "Customize Columns" },
    { "btn_select_all", "Select All" },
    { "btn_deselect_all", "Deselect All" },
    { "btn_batch_delete", "Delete Selected" },
    { "btn_batch_reprocess", "Reprocess Selected" },
    { "btn_toggle_console", "Console Log" },
    { "btn_clear_console", "Clear Console" },
    { "btn_xdr_compare_pill", "HDR Compare" },
    { "btn_zebra", "Zebra (Z)" },
    { "btn_histogram", "Histogram (H)" },
    { "btn_check_now", "Check Now" },
    { "btn_close", "Close" },
    { "btn_ok", "OK" },

    // dialogs
    { "dialog_select_folder", "Select Folder" },
    { "dialog_error_title", "Quarantine Error Details" },
    { "dialog_ok", "OK" },
    { "dialog_file_missing_title", "Foto no encontrada en el disco" },
    { "dialog_file_missing_desc",
      "El archivo [%@] se ha movido, renombrado o eliminado de su ubicación original." },

    // batch options
    { "opt_force_reprocess", "Force Reprocess" },
    { "opt_force_reprocess_help", "Ignore database history and regenerate all photos" },
    { "opt_backlit_fill", "AI Backlit Fill-Light" },
    { "opt_backlit_fill_help",
      "Gently lifts shadowed faces and subjects in backlit scenes while keeping the bright "
      "background intact" },
    { "opt_dry_run", "Dry Run Mode" },
    { "opt_dry_run_help",
      "Scan the source folder and report what would be processed, without writing any files" },
    { "opt_single_stem", "Single Target:" },
    { "opt_single_stem_placeholder", "e.g. DSC04223 (Optional)" },

    // progress card
    { "card_processing", "Processing Batch" },
    { "card_idle", "Idle" },
    { "card_pairs_found", "%d Pairs Found" },
    { "card_progress_ratio", "[%d / %d]  %d%%" },
    // main window: time left in the running batch, quitting
    { "card_time_left", "%@ left" },
    { "menu_quit", "Quit Orvanta" },

    // progress metrics
    { "metric_faces", "Faces: %d" },
    { "metric_peak_gain", "Peak Gain: +%.2fst" },
    { "metric_bayer_clip", "Sensor Clip: %.3f%%" },
    { "metric_duration", "Elapsed: %.1fs" },
    { "metric_elapsed", "Elapsed" },
    { "metric_throughput_speed", "%.1fs / photo" },

    // console
    { "console_title", "Live Console" },
    { "console_auto_scroll", "Auto-Scroll" },
    { "console_clear", "Clear" },
    { "console_waiting", "Waiting for engine output..." },
    { "console_copy_all", "Copy All" },
    { "console_copied", "Copied!" },

    // dashboard figures
    { "kpi_total_processed", "Total Processed" },
    { "kpi_success_delivered", "Success / Delivered" },
    { "kpi_quarantine_failed", "Quarantine / Failed" },
    { "kpi_avg_duration", "Avg. Duration" },

    // units
    { "unit_photos", "Photos" },
    { "unit_ultra_hdr", "Ultra HDR" },
    { "unit_attention_needed", "Attention Needed" },
    { "unit_sec_per_photo", "sec / photo" },
    { "unit_faces", "%d Faces" },

    // history
    { "history_search_placeholder", "Search photo stem (e.g. DSC04223)..." },
    { "history_empty", "No processing history found" },
    { "history_loading_more", "Loading more photos..." },
    { "history_all_loaded", "All %d photos loaded" },

    // errors
    { "error_unknown", "Unknown error" },

    // actions
    { "action_reveal_finder", "Show in File Manager" },
    { "action_quicklook", "Quick Preview (Space)" },
    { "action_file_offline", "File Offline" },
    { "action_view_error", "View Error Details" },
    { "action_switch_language", "Change Language" },
    { "action_edr_compare", "HDR Split Compare" },
    { "action_airdrop", "Send by E-mail" },
    { "action_share_sheet", "Share…" },
    { "action_inspector", "View Metadata Inspector..." },

    // settings window
    { "settings_title", "Preferences" },
    { "settings_tab_perf", "Performance" },
    { "settings_tab_paths", "Paths" },
    { "settings_tab_safety", "Safety & Diagnostics" },
    { "settings_tab_styles", "Style Presets" },
    { "settings_workers_label", "Concurrent Processing Workers" },
    { "settings_workers_auto", "Auto (Adaptive)" },
    { "settings_workers_1", "1 Worker (Eco)" },
    { "settings_workers_2", "2 Workers (Balanced)" },
    { "settings_workers_3", "3 Workers (Fast)" },
    { "settings_workers_4", "4 Workers (High)" },
    { "settings_workers_6", "6 Workers (Burst)" },
    { "settings_workers_8", "8 Workers (Maximum)" },
    { "settings_workers_desc",
      "Auto lets the engine choose the number of parallel workers from the available CPU cores and "
      "memory. More workers finish a batch sooner but use more memory." },
    { "settings_throttle_label", "Dynamic Memory Pressure Throttle" },
    { "settings_throttle_desc",
      "Slows down the engine when the system runs short of memory, so long batches stay stable "
      "instead of swapping." },
    { "settings_probe_title", "Live Hardware & Memory Probe" },
    { "settings_canary_label", "External Storage Disconnect Protection" },
    { "settings_canary_desc",
      "Stops the batch safely when the destination drive is disconnected or runs low on free space "
      "during export." },
    { "settings_masks_label", "Export Debug Masks & Gain Maps" },
    { "settings_sound_label", "Completion Notification Sound" },
    { "settings_sound_desc", "Play a sound with the notification when a batch finishes." },
    { "settings_btn_open_logs", "Show Logs in File Manager" },
    { "settings_btn_open_db", "Show State DB in File Manager" },
    { "settings_core_hardened",
      "Hardened core: the engine runs in its own process, and every finished photo is recorded in "
      "the state database." },
    { "settings_styles_desc",
      "Select an Ultra HDR rendering profile tailored to your photography genre. The selected "
      "profile will apply to all subsequent batches." },
    { "settings_diagnostics_title", "System Diagnostics & Logs" },
    { "settings_probe_refresh_help", "Refresh the hardware and memory readings" },
    { "settings_probe_ram", "Physical RAM" },
    { "settings_probe_arch", "Architecture" },
    { "settings_probe_pressure", "Memory Pressure" },
    { "settings_default_source_dir", "Default Source Photos Folder" },
    { "settings_default_dest_dir", "Default Ultra HDR Output Folder" },
    { "settings_tab_updates", "Updates" },
    { "settings_updates_title", "Software Updates" },
    { "settings_auto_check", "Automatically Check for Updates" },
    { "settings_auto_check_desc",
      "Orvanta looks for a new version once a day and lets you know when one is available." },
    { "settings_manual_check", "Check Manually" },
    { "settings_manual_check_desc", "Look for a new version of Orvanta right now." },
    { "settings_tab_about", "About & Legal" },
    { "settings_about_tagline",
      "Turns your RAW+JPG pairs into brilliant Ultra HDR photos, ready for every HDR display." },
    { "settings_about_engine_badge", "Powered by the Orvanta Ultra HDR Engine" },
    { "settings_about_ack_title", "Acknowledgments" },
    { "settings_about_ack_desc",
      "Orvanta is built on these open-source projects. Many thanks to their authors and "
      "communities." },
    // settings window: naming template warnings and the updates page
    { "export_warning_forbidden_chars", "File names cannot contain: %@" },
    { "export_warning_unknown_placeholders", "Unknown placeholders, written out as typed: %@" },
    { "settings_updates_unavailable", "Update checks are not set up in this build of Orvanta." },

    // style presets
    { "style_profile_title", "Style Preset" },

    // style profiles
    { "profile_default_title", "Default (Faithful)" },
    { "profile_default_desc",
      "Faithful highlight roll-off and balanced contrast with natural dynamic range" },
    { "profile_portrait_title", "Portrait Soft" },
    { "profile_portrait_desc",
      "Soft specular transitions with luminous, natural skin tones under harsh lighting" },
    { "profile_landscape_title", "Landscape Punchy" },
    { "profile_landscape_desc",
      "Enhanced micro-contrast and specular brilliance for vibrant, punchy scenes" },
    { "profile_cinematic_title", "Cinematic Film" },
    { "profile_cinematic_desc",
      "Warm filmic tone curve with rich shadow details and gentle highlight compression" },
    { "profile_custom_title", "Custom Fine-Tuning" },
    { "profile_custom_desc",
      "Fine-tune midtones, highlight compression, chroma expansion, and skin protection" },

    // custom fine-tuning
    { "custom_sliders_title", "Fine-Tuning Parameters" },
    { "custom_reset_defaults", "Reset Defaults" },

    // sliders
    { "slider_mid_target", "Midtone Base Level" },
    { "slider_power_mid", "Midtone Contrast" },
    { "slider_power_hi", "Highlight Rolloff Smoothness" },
    { "slider_chroma_boost", "Specular Color Saturation" },
    { "slider_skin_damp", "AI Skin Tone Natural Protection" },
    { "slider_max", "Max" },

    // drag and drop
    { "drop_hint_source", "Release to set as Source Photos folder" },
    { "drop_overlay_title", "Drop Photos or Folders Here" },
    { "drop_overlay_subtitle", "Drop RAW/JPG folders or selected photo files to load" },
    { "drop_success_folder", "Loaded source folder: %@" },
    { "drop_success_photos", "Loaded %d photos: %@" },

    // filters
    { "filter_all", "All" },
    { "filter_success", "Success" },
    { "filter_failed", "Failed" },
    { "filter_tooltip", "Filter by status" },
    { "filter_no_match", "No photos match the current filter" },
    { "filter_rating_all", "All Ratings" },
    { "filter_rating_1", "1+ Stars" },
    { "filter_rating_2", "2+ Stars" },
    { "filter_rating_3", "3+ Stars" },
    { "filter_rating_4", "4+ Stars" },
    { "filter_rating_5", "5 Stars Only" },

    // sorting
    { "sort_date", "Date" },
    { "sort_peak_stops", "Peak Gain" },
    { "sort_faces", "Faces" },
    { "sort_duration", "Duration" },
    { "sort_name", "Name" },
    { "sort_tooltip", "Sort by attribute" },
    { "sort_asc", "Ascending (Small to Large)" },
    { "sort_desc", "Descending (Large to Small)" },

    // compare window
    { "edr_sdr_banner_title", "⚠️ Current Display is SDR (%@)" },
    { "edr_sdr_banner_desc",
      "Peak hardware luminance is ~350 nits, unable to physically emit Ultra HDR 1600-nit "
      "highlights. Anti-clipping active. View on an HDR display for full brilliance." },
    { "edr_sdr_screen_notice",
      "SDR screen: Ultra HDR highlights cannot be shown at full brightness here." },
    { "edr_window_title", "HDR Split Compare" },
    { "edr_badge_xdr", "Liquid Retina XDR: 1600 nits (EDR 4.0x)" },
    { "edr_badge_sdr", "Standard Display: 500 nits (SDR 1.0x)" },
    { "edr_label_sdr", "Original Camera (SDR)" },
    { "edr_label_hdr", "Ultra HDR (1600 nits Peak)" },
    { "edr_drag_hint", "Drag slider to compare • Press Space to toggle" },
    { "edr_mode_split", "Split View" },
    { "edr_mode_hdr", "Ultra HDR Only" },
    { "edr_mode_sdr", "SDR Only" },
    { "edr_nav_prev", "Previous (←)" },
    { "edr_nav_next", "Next (→)" },
    { "edr_zoom_hint",
      "Pinch or Ctrl+wheel to zoom • Double-click 100% • Space to toggle • Tab for pure view" },
    // compare window: viewer tools
    { "edr_no_gl", "The HDR viewer needs OpenGL, which is not available on this display." },
    { "edr_loading", "Loading photo…" },
    { "edr_sdr_from_hdr",
      "Camera JPEG missing: the left side shows the Ultra HDR file's own SDR image." },
    { "edr_zebra_highlights", "Highlight zebra from" },
    { "edr_zebra_shadows", "Shadow zebra below" },
    { "edr_simulate_headroom", "Simulated headroom" },
    { "edr_pixel_readout", "Pixel %d, %d   R %.3f  G %.3f  B %.3f   (%.2f stops)" },
    { "edr_share_copy_path", "Copy File Path" },
    { "edr_share_open", "Open in Default Viewer" },

    // SDR render mode
    { "sdr_mode_label", "SDR Render Mode:" },
    { "sdr_mode_natural_hint", "Standard: displays clean SDR base image, no harsh clipping" },
    { "sdr_mode_filmic_hint",
      "Filmic roll-off compression: reveals highlight clouds and texture in SDR" },
    { "sdr_mode_natural", "Natural SDR" },
    { "sdr_mode_filmic", "Filmic Roll-Off" },

    // memory pressure
    { "pressure_normal", "🟢 Normal" },
    { "pressure_warning", "Elevated (Throttle)" },
    { "pressure_critical", "🔴 Critical" },

    // profile summary badges
    { "badge_mid", "Mid" },
    { "badge_power_mid", "Power Mid" },
    { "badge_power_hi", "Power Hi" },
    { "badge_chroma", "Chroma" },
    { "badge_skin_damp", "Skin Damp" },
    { "badge_scale", "Scale" },
    { "badge_mode", "Mode" },
    { "badge_sliders", "Sliders" },
    { "badge_custom", "Custom" },
    { "badge_finetuning", "Fine-Tuning" },

    // menus
    { "menu_settings", "Preferences..." },
    { "menu_folders", "Folders" },
    { "menu_open_source", "Select Source Photos Folder..." },
    { "menu_open_dest", "Select Destination Folder..." },
    { "menu_pipeline", "Processing" },
    { "menu_start_pipeline", "Start Batch Processing" },
    { "menu_stop_pipeline", "Stop Processing" },
    { "menu_refresh_history", "Refresh History" },
    { "menu_check_updates", "Check for Updates..." },

    // console messages
    { "log_volume_insufficient",
      "Target storage volume has insufficient space or is unavailable: [%@]" },
    { "log_dry_run_activated",
      "Modo de simulación activado: escaneo rápido sin escritura en disco." },
    { "log_engine_start_failed", "Failed to start processing engine: %@" },

    // tags
    { "tag_rating", "Rating" },

    // labels
    { "lbl_rating_filter", "Rating Filter:" },
    { "lbl_rating_filter_help",
      "Only process photos rated at or above the selected number of stars" },

    // recipes
    { "recipes_title", "My Preset Recipes" },
    { "recipes_section_my", "My Recipes" },
    { "recipes_save_as", "Save as Recipe..." },
    { "recipes_save_dialog_title", "Save as Preset Recipe" },
    { "recipes_name_placeholder", "Recipe name (e.g. Sunset Backlight)" },
    { "recipes_empty_hint",
      "No custom recipes yet. Adjust the sliders above and click 'Save as Recipe' to save your "
      "unique style." },
    { "recipes_apply", "Apply" },
    { "recipes_applied", "Loaded recipe: %@" },
    { "recipes_rename", "Rename" },
    { "recipes_rename_dialog_title", "Rename Recipe" },
    { "recipes_delete", "Delete" },
    { "recipes_export_all", "Export Recipes..." },
    { "recipes_import", "Import Recipes..." },
    { "recipes_imported_success", "Successfully imported %d recipes!" },
    { "recipes_btn_save", "Save" },
    { "recipes_btn_cancel", "Cancel" },

    // export naming
    { "export_naming_title", "Export Naming & Subfolder Organization" },
    { "export_naming_template", "Naming Template" },
    { "export_template_help",
      "Available placeholders: {original}, {profile}, {date}, {camera}, {rating}" },
    { "export_preview_label", "Live Preview" },
    { "export_subfolder_rule", "Subfolder Organization" },

    // subfolder rules
    { "subfolder_rule_none", "None (Flat in destination folder)" },
    { "subfolder_rule_by_date", "By Capture Date (YYYY-MM-DD/)" },
    { "subfolder_rule_by_rating", "By Star Rating (5_Stars/, 4_Stars/)" },
    { "subfolder_rule_by_profile", "By Style Profile (Portrait/, Landscape/)" },

    // inspector
    { "inspector_title", "Metadata & HDR Inspector" },
    { "inspector_sec_camera", "Camera & Lens" },
    { "inspector_sec_exposure", "Exposure Settings" },
    { "inspector_aperture", "Aperture" },
    { "inspector_shutter", "Shutter Speed" },
    { "inspector_iso", "ISO" },
    { "inspector_focal_len", "Focal Length" },
    { "inspector_exp_bias", "Exposure Bias" },
    { "inspector_sec_hdr", "Ultra HDR Physics & Gain Map" },
    { "inspector_peak_stops", "Peak Dynamic Headroom" },
    { "inspector_gainmap_spec", "Gain Map Standard" },
    { "inspector_faces_detected", "Faces Detected" },
    { "inspector_faces_count", "%d faces (40% skin damping)" },
    { "inspector_faces_none", "None (Full dynamic boost)" },
    { "inspector_bayer_clip", "Bayer Sensor Clip Rate" },
    { "inspector_engine_version", "Algorithm Engine" },
    { "inspector_sec_file_display", "File & Display Capability" },
    { "inspector_resolution", "Resolution" },
    { "inspector_filesize", "File Size" },
    { "inspector_display_cap", "Hardware Display Headroom" },

    // history columns
    { "col_peak_stops", "Peak Gain" },
    { "col_exposure", "Exposure" },
    { "col_camera_lens", "Camera / Lens" },
    { "col_faces", "Faces" },
    { "col_bayer_clip", "Sensor Clip" },
    { "col_duration", "Duration" },
    { "col_file_size", "File Size" },
    { "col_date", "Date" },
    { "col_status", "Status" },
    { "col_actions", "Actions" },

    // selection
    { "batch_selected_count", "%d selected" },

    // histogram
    { "hist_title", "HDR Dynamic Range Histogram" },
    { "hist_sdr", "SDR (0-100 nits)" },
    { "hist_edr", "XDR (100-1600 nits)" },
    { "hist_peak", "Peak Luminance" },

    // history table, share menu and inspector (ui/history)
    { "history_delete_confirm_title", "Delete %d records from the history?" },
    { "history_delete_confirm_desc",
      "The photo files stay on disk; only their history entries are removed." },
    { "share_copy_image", "Copy Image" },
    { "share_copy_path", "Copy File Path" },
    { "share_open_default", "Open in Default Application" },
    { "inspector_gainmap_none", "No gain map in this file" },
    { "inspector_gainmap_detail", "%@ · %.2f to %.2f stops · %d channels" },
    { "inspector_display_hdr", "HDR display (%.1fx)" },
    { "inspector_display_sdr", "Standard SDR (1.0x)" },

    // donation sheet
    { "menu_sponsor", "Support & Sponsor Orvanta..." },
    { "donate_title", "Thank You for Using Orvanta" },
    { "donate_desc",
      "Orvanta is crafted by an independent developer who cares about your photos as much as you "
      "do. Every donation helps keep Orvanta free and actively developed. Thank you for your "
      "support!" },
    { "donate_btn_open", "Open Donation Page" },
    { "donate_btn_later", "Maybe Later" },

    // update checks (app/UpdateAnnouncer, settings updates page)
    { "update_available_title", "Orvanta %@ is available" },
    { "update_available_body", "A new version of Orvanta is ready to download. You have %@." },
    { "update_open_page", "Open Download Page" },
    { "update_later", "Later" },
    { "update_up_to_date_title", "You're up to date" },
    { "update_up_to_date_body", "Orvanta %@ is the newest version available." },
    { "update_failed_title", "The update check failed" },
    { "update_failed_network",
      "The update server could not be reached. Check your internet connection and try again "
      "later." },
    { "update_failed_feed", "The update information from the server could not be read." },
    { "update_failed_signature",
      "The update information does not carry a valid signature of the Orvanta developers, so it "
      "was not trusted." },
    { "update_packaged_title", "Updates come from your package manager" },
    { "update_packaged_body",
      "This copy of Orvanta was installed as a package of your system. Your software centre or "
      "package manager (apt, for example) installs its new versions." },
    { "update_packaged_note", "This installation is updated by your system's package manager." },
    // Label and value in one text, the colon as the language writes it
    { "metric_elapsed_value", "Elapsed: %@" },
    { "hist_peak_value", "Peak Luminance: %@" },
    // never lose work: quit question, missing engine
    { "quit_running_title", "A batch is still running" },
    { "quit_running_message",
      "The engine is still converting photos. Stopping lets it finish the photo in progress first; "
      "nothing already done is lost." },
    { "quit_stop_and_quit", "Stop the Batch and Quit" },
    { "quit_when_done", "Quit When the Batch Ends" },
    { "quit_keep_running", "Keep Running" },
    { "status_stopping_to_quit", "Stopping the batch, then quitting..." },
    { "env_engine_missing", "Engine not found: %@" },
    { "env_engine_not_executable", "Engine is not executable: %@" },
    { "env_missing_libraries", "Missing libraries: %@" },
    { "log_engine_missing_start",
      "Cannot start: no engine at %@. Install orvanta_engine or set ORVANTA_BIN to its path." },
    // recipe messages, engine version, singular forms of counts
    { "recipes_exported_success", "Recipes exported successfully!" },
    { "recipes_export_failed", "Failed to export recipes: %@" },
    { "recipes_import_failed", "Failed to import recipes: %@" },
    { "inspector_peak_value", "+%.2f stops (%.1fx)" },
    { "history_row_success", "Success" },
    { "history_row_failed", "Failed" },
    { "inspector_engine_version_unknown", "Not available (engine not found)" },
    { "card_pairs_found#one", "%d Pair Found" },
    { "notif_batch_success_body#one", "Successfully delivered %d Ultra HDR photo in %.1fs." },
    { "history_all_loaded#one", "%d photo loaded" },
    { "drop_success_photos#one", "Loaded %d photo: %@" },
    { "recipes_imported_success#one", "Successfully imported %d recipe!" },
    { "inspector_faces_count#one", "%d face (40% skin damping)" },
    { "history_delete_confirm_title#one", "Delete %d record from the history?" },
    { "inspector_gainmap_detail#one", "%@ · %.2f to %.2f stops · %d channel" },
    // History database locked by another program
    { "history_busy", "History is busy, retrying…" },
    // Batch: pause, nothing to do, failure list
    { "status_nothing_to_do", "Nothing to process: no matching RAW+JPG pairs were found" },
    { "status_paused", "Paused at [%d / %d]" },
    { "status_resumed", "Resumed at [%d / %d]" },
    { "btn_pause", "Pause" },
    { "btn_resume", "Resume" },
    { "menu_pause_pipeline", "Pause or Resume Batch" },
    { "card_paused", "Paused" },
    { "card_failed_count", "%d failed" },
    { "btn_show_failures", "Show Failures" },
    { "failures_title", "Photos That Failed" },
    { "failures_summary", "Not delivered in the last batch: %d" },
    { "failures_column_photo", "Photo" },
    { "failures_column_reason", "Reason" },
    { "failures_no_reason", "The engine gave no reason" },
    { "failures_reveal", "Show in Files" },
    { "failures_retry", "Retry Failed" },
    { "failures_close", "Close" },
    // Name of a destination that is not a volume of its own
    { "volume_local_disk", "Local Disk" },
    // Watching a folder after the batch
    { "opt_watch_folder", "Keep Watching the Folder" },
    { "opt_watch_folder_help",
      "After the batch, convert each new RAW+JPG pair as it arrives (for tethered shooting) until "
      "you press Stop Processing" },
    { "card_watching", "Watching %@" },
    { "card_watch_lost_title", "Waiting for the Folder" },
    { "card_watch_count", "%d photos converted since the start" },
    { "card_watch_count#one", "%d photo converted since the start" },
    { "card_watch_last", "Last photo: %@" },
    { "card_watch_lost",
      "The watched folder is gone (moved or deleted). Waiting for it to come back…" },
    { "card_watch_lost_unmounted",
      "The disk holding the watched folder was removed. Waiting for it to come back…" },
    { "status_watching", "Watching %@ for new photos" },
    // What made a photo fail, as the failure list says it
    { "failure_jpg_unreadable", "The camera JPG cannot be read" },
    { "failure_raw_unreadable", "The RAW file cannot be read" },
    { "failure_colour_unmatched",
      "The JPG does not match the RAW’s colours, so no HDR version was made" },
    { "failure_encode_failed", "The Ultra HDR file could not be made" },
    { "failure_write_failed", "The result could not be saved in the destination folder" },
    { "failure_destination_gone", "The destination folder disappeared during the batch" },
};
} // namespace

std::span<const StringEntry> en()
{
    return kEntries;
}

} // namespace orvanta::strings
