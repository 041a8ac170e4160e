// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Traditional Chinese texts (Taiwan).
#include "i18n/StringTables.h"

namespace orvanta::strings {
namespace {
constexpr StringEntry kEntries[] = {
    // app
    { "app_title", "Orvanta" },
    { "app_subtitle", "專業 Ultra HDR 攝影自動化處理" },

    // status line
    { "status_env_ready", "環境就緒" },
    { "status_env_missing", "缺少相依元件" },
    { "status_ready", "就緒" },
    { "status_processing", "Procesando..." },
    { "status_failed", "Fallido" },
    { "status_scanning", "正在掃描來源照片…" },
    { "status_scan_done", "掃描完成：%d 張待處理" },
    { "status_processing_item", "正在處理 [%d/%d] %@…" },
    { "status_item_completed", "已完成 [%d/%d] %@（+%.2fst）" },
    { "status_item_failed", "失敗 [%d/%d] %@" },
    { "status_batch_completed", "批次處理完成（成功：%d，失敗：%d）" },
    { "status_all_up_to_date", "所有項目皆已是最新狀態（略過 %d 項，沒有待處理的檔案）" },
    { "status_cancelled", "已由使用者取消" },
    { "status_cancelling", "正在停止…" },
    { "status_dryrun_completed", "模擬執行完成：共 %d 張，待處理 %d 張，略過 %d 張" },
    { "status_abnormal", "異常終止（結束代碼 %d）" },

    // tabs
    { "tab_live_run", "即時批次處理" },
    { "tab_history", "歷史紀錄與隔離區" },

    // footer
    { "footer_storage_safe", "%@ 已掛載，狀態良好（可用空間 %.1f GB）" },

    // notifications
    { "notif_batch_completed_title", "批次處理已完成" },
    { "notif_action_open_folder", "在檔案管理員中顯示" },
    { "notif_batch_success_body", "已成功輸出 %d 張 Ultra HDR 照片，耗時 %.1f 秒。" },
    { "notif_batch_failed_body", "%d 張成功，%d 張失敗。" },

    // folder bar
    { "folder_source_title", "來源資料夾" },
    { "folder_source_placeholder", "選擇 RAW+JPG 來源資料夾" },
    { "folder_dest_title", "輸出資料夾" },
    { "folder_dest_placeholder", "選擇 Ultra HDR 輸出資料夾" },

    // buttons
    { "btn_browse", "瀏覽…" },
    { "btn_start_batch", "開始批次處理" },
    { "btn_stop", "停止處理" },
    { "btn_refresh", "重新整理" },
    { "btn_settings", "偏好設定（Ctrl+,）" },
    { "btn_done", "完成" },
    { "btn_custom_columns", "自訂欄位" },
    { "btn_select_all", "全選" },
    { "btn_deselect_all", "取消全選" },
    { "btn_batch_delete", "刪除所選項目" },
    { "btn_batch_reprocess", "重新處理所選項目" },
    { "btn_toggle_console", "主控台記錄" },
    { "btn_clear_console", "清除主控台" },
    { "btn_xdr_compare_pill", "HDR 比較" },
    { "btn_zebra", "斑馬紋（Z）" },
    { "btn_histogram", "色階分佈圖（H）" },
    { "btn_check_now", "立即檢查" },
    { "btn_close", "關閉" },
    { "btn_ok", "確定" },

    // dialogs
    { "dialog_select_folder", "選擇資料夾" },
    { "dialog_error_title", "隔離錯誤詳細資訊" },
    { "dialog_ok", "確定" },
    { "dialog_file_missing_title", "Foto no encontrada en el disco" },
    { "dialog_file_missing_desc",
      "El archivo [%@] se ha movido, renombrado o eliminado de su ubicación original." },

    // batch options
    { "opt_force_reprocess", "強制重新處理" },
    { "opt_force_reprocess_help", "忽略資料庫中的歷史紀錄，重新產生所有照片" },
    { "opt_backlit_fill", "AI 逆光補光" },
    { "opt_backlit_fill_help",
      "在逆光場景中柔和地提亮處於陰影中的臉孔與主體，同時維持明亮的背景不受影響" },
    { "opt_dry_run", "模擬執行模式" },
    { "opt_dry_run_help", "掃描來源資料夾並回報將處理的項目，不寫入任何檔案" },
    { "opt_single_stem", "單一目標：" },
    { "opt_single_stem_placeholder", "例如 DSC04223（選填）" },

    // progress card
    { "card_processing", "批次處理中" },
    { "card_idle", "閒置" },
    { "card_pairs_found", "找到 %d 組照片" },
    { "card_progress_ratio", "[%d / %d]  %d%%" },
    // main window: time left in the running batch, quitting
    { "card_time_left", "剩餘 %@" },
    { "menu_quit", "結束 Orvanta" },

    // progress metrics
    { "metric_faces", "臉孔：%d" },
    { "metric_peak_gain", "峰值增益：+%.2fst" },
    { "metric_bayer_clip", "感測器剪裁：%.3f%%" },
    { "metric_duration", "耗時：%.1f 秒" },
    { "metric_elapsed", "耗時" },
    { "metric_throughput_speed", "%.1f 秒/張" },

    // console
    { "console_title", "即時主控台" },
    { "console_auto_scroll", "自動捲動" },
    { "console_clear", "清除" },
    { "console_waiting", "正在等待引擎輸出…" },
    { "console_copy_all", "全部複製" },
    { "console_copied", "已複製！" },

    // dashboard figures
    { "kpi_total_processed", "處理總數" },
    { "kpi_success_delivered", "成功 / 已輸出" },
    { "kpi_quarantine_failed", "隔離 / 失敗" },
    { "kpi_avg_duration", "平均耗時" },

    // units
    { "unit_photos", "張照片" },
    { "unit_ultra_hdr", "Ultra HDR" },
    { "unit_attention_needed", "需要注意" },
    { "unit_sec_per_photo", "秒/張" },
    { "unit_faces", "%d 張臉孔" },

    // history
    { "history_search_placeholder", "搜尋照片檔名（例如 DSC04223）…" },
    { "history_empty", "沒有處理記錄" },
    { "history_loading_more", "正在載入更多照片…" },
    { "history_all_loaded", "已載入全部 %d 張照片" },

    // errors
    { "error_unknown", "不明的錯誤" },

    // actions
    { "action_reveal_finder", "在檔案管理員中顯示" },
    { "action_quicklook", "快速預覽（空白鍵）" },
    { "action_file_offline", "檔案離線" },
    { "action_view_error", "檢視錯誤詳細資訊" },
    { "action_switch_language", "變更語言" },
    { "action_edr_compare", "HDR 分割比較" },
    { "action_airdrop", "透過電子郵件傳送" },
    { "action_share_sheet", "分享…" },
    { "action_inspector", "檢視中繼資料檢閱器…" },

    // settings window
    { "settings_title", "偏好設定" },
    { "settings_tab_perf", "效能" },
    { "settings_tab_paths", "路徑" },
    { "settings_tab_safety", "安全與診斷" },
    { "settings_tab_styles", "風格預設集" },
    { "settings_workers_label", "並行處理執行緒數" },
    { "settings_workers_auto", "自動（自適應）" },
    { "settings_workers_1", "1 個執行緒（節能）" },
    { "settings_workers_2", "2 個執行緒（平衡）" },
    { "settings_workers_3", "3 個執行緒（快速）" },
    { "settings_workers_4", "4 個執行緒（高效能）" },
    { "settings_workers_6", "6 個執行緒（全速）" },
    { "settings_workers_8", "8 個執行緒（極限）" },
    { "settings_workers_desc",
      "選擇「自動」時，引擎會依可用的 CPU "
      "核心數與記憶體自行決定並行執行緒數。執行緒越多，批次處理完成得越快，但也會佔用更多記憶體"
      "。" },
    { "settings_throttle_label", "動態記憶體壓力限速" },
    { "settings_throttle_desc",
      "當系統記憶體不足時自動放慢引擎速度，讓長時間的批次處理保持穩定，避免頻繁使用置換空間。" },
    { "settings_probe_title", "即時硬體與記憶體偵測" },
    { "settings_canary_label", "外接儲存裝置中斷連線保護" },
    { "settings_canary_desc",
      "匯出過程中，若目的地磁碟中斷連線或可用空間不足，將安全地停止批次處理。" },
    { "settings_masks_label", "匯出偵錯遮色片與增益圖" },
    { "settings_sound_label", "完成通知音效" },
    { "settings_sound_desc", "批次處理完成時，隨通知播放音效。" },
    { "settings_btn_open_logs", "在檔案管理員中顯示記錄檔" },
    { "settings_btn_open_db", "在檔案管理員中顯示狀態資料庫" },
    { "settings_core_hardened",
      "強化核心：引擎在獨立的處理程序中執行，每張處理完成的照片都會記錄在狀態資料庫中。" },
    { "settings_styles_desc",
      "選擇適合您拍攝題材的 Ultra HDR 呈現風格。所選風格將套用至之後的所有批次處理。" },
    { "settings_diagnostics_title", "系統診斷與記錄檔" },
    { "settings_probe_refresh_help", "重新整理硬體與記憶體讀數" },
    { "settings_probe_ram", "實體記憶體" },
    { "settings_probe_arch", "架構" },
    { "settings_probe_pressure", "記憶體壓力" },
    { "settings_default_source_dir", "預設來源照片資料夾" },
    { "settings_default_dest_dir", "預設 Ultra HDR 輸出資料夾" },
    { "settings_tab_updates", "更新" },
    { "settings_updates_title", "軟體更新" },
    { "settings_auto_check", "自動檢查更新" },
    { "settings_auto_check_desc", "Orvanta 每天檢查一次新版本，有可用的更新時會通知您。" },
    { "settings_manual_check", "手動檢查" },
    { "settings_manual_check_desc", "立即檢查 Orvanta 是否有新版本。" },
    { "settings_tab_about", "關於與法律資訊" },
    { "settings_about_tagline",
      "將您的 RAW+JPG 照片組轉換為絢麗的 Ultra HDR 照片，適用於各種 HDR 顯示器。" },
    { "settings_about_engine_badge", "採用 Orvanta Ultra HDR 引擎" },
    { "settings_about_ack_title", "致謝" },
    { "settings_about_ack_desc",
      "Orvanta 以下列開放原始碼專案為基礎打造，衷心感謝這些專案的作者與社群。" },
    // settings window: naming template warnings and the updates page
    { "export_warning_forbidden_chars", "檔案名稱中不允許使用：%@" },
    { "export_warning_unknown_placeholders", "未知的預留位置，將依原樣寫入：%@" },
    { "settings_updates_unavailable", "此版本的 Orvanta 未設定更新檢查。" },

    // style presets
    { "style_profile_title", "風格預設集" },

    // style profiles
    { "profile_default_title", "預設（忠實）" },
    { "profile_default_desc", "忠實的亮部過渡與均衡的對比，呈現自然的動態範圍" },
    { "profile_portrait_title", "柔和人像" },
    { "profile_portrait_desc", "在強光下呈現柔和的反光過渡與明亮自然的膚色" },
    { "profile_landscape_title", "鮮明風景" },
    { "profile_landscape_desc", "強化微對比與反光亮度，讓畫面鮮豔而富有張力" },
    { "profile_cinematic_title", "電影底片" },
    { "profile_cinematic_desc", "溫暖的底片色調曲線，暗部細節豐富，亮部壓縮柔和" },
    { "profile_custom_title", "自訂微調" },
    { "profile_custom_desc", "微調中間調、亮部壓縮、色度擴展與膚色保護" },

    // custom fine-tuning
    { "custom_sliders_title", "微調參數" },
    { "custom_reset_defaults", "重設為預設值" },

    // sliders
    { "slider_mid_target", "中間調基準亮度" },
    { "slider_power_mid", "中間調對比" },
    { "slider_power_hi", "亮部過渡平滑度" },
    { "slider_chroma_boost", "鏡面反光飽和度" },
    { "slider_skin_damp", "AI 自然膚色保護" },
    { "slider_max", "最大" },

    // drag and drop
    { "drop_hint_source", "放開以設為來源照片資料夾" },
    { "drop_overlay_title", "將照片或資料夾拖放到這裡" },
    { "drop_overlay_subtitle", "拖放 RAW/JPG 資料夾或選取的照片檔案即可載入" },
    { "drop_success_folder", "已載入來源資料夾：%@" },
    { "drop_success_photos", "已載入 %d 張照片：%@" },

    // filters
    { "filter_all", "全部" },
    { "filter_success", "成功" },
    { "filter_failed", "失敗" },
    { "filter_tooltip", "依狀態篩選" },
    { "filter_no_match", "沒有符合目前篩選條件的照片" },
    { "filter_rating_all", "所有評等" },
    { "filter_rating_1", "1 星以上" },
    { "filter_rating_2", "2 星以上" },
    { "filter_rating_3", "3 星以上" },
    { "filter_rating_4", "4 星以上" },
    { "filter_rating_5", "僅 5 星" },

    // sorting
    { "sort_date", "日期" },
    { "sort_peak_stops", "峰值增益" },
    { "sort_faces", "臉孔" },
    { "sort_duration", "耗時" },
    { "sort_name", "名稱" },
    { "sort_tooltip", "依屬性排序" },
    { "sort_asc", "遞增（由小到大）" },
    { "sort_desc", "遞減（由大到小）" },

    // compare window
    { "edr_sdr_banner_title", "⚠️ 目前的顯示器為 SDR（%@）" },
    { "edr_sdr_banner_desc",
      "硬體峰值亮度約為 350 nits，無法實際呈現 Ultra HDR 1600 nits 的亮部。已啟用防剪裁保護。請在 "
      "HDR 顯示器上檢視，以呈現完整的亮麗效果。" },
    { "edr_sdr_screen_notice", "SDR 螢幕：此處無法以完整亮度顯示 Ultra HDR 亮部。" },
    { "edr_window_title", "HDR 分割比較" },
    { "edr_badge_xdr", "Liquid Retina XDR: 1600 nits (EDR 4.0x)" },
    { "edr_badge_sdr", "標準顯示器：500 nits（SDR 1.0x）" },
    { "edr_label_sdr", "相機原圖（SDR）" },
    { "edr_label_hdr", "Ultra HDR（峰值 1600 nits）" },
    { "edr_drag_hint", "拖曳滑桿進行比較 • 按空白鍵切換" },
    { "edr_mode_split", "分割檢視" },
    { "edr_mode_hdr", "僅 Ultra HDR" },
    { "edr_mode_sdr", "僅 SDR" },
    { "edr_nav_prev", "上一張（←）" },
    { "edr_nav_next", "下一張（→）" },
    { "edr_zoom_hint", "雙指或 Ctrl+滾輪縮放 • 按兩下 100% • 空白鍵切換 • Tab 鍵進入純淨檢視" },
    // compare window: viewer tools
    { "edr_no_gl", "HDR 檢視器需要 OpenGL，但此顯示器上無法使用。" },
    { "edr_loading", "正在載入照片…" },
    { "edr_sdr_from_hdr", "缺少相機 JPEG：左側顯示的是 Ultra HDR 檔案本身的 SDR 影像。" },
    { "edr_zebra_highlights", "亮部斑馬紋起點" },
    { "edr_zebra_shadows", "陰影斑馬紋低於" },
    { "edr_simulate_headroom", "模擬餘裕" },
    { "edr_pixel_readout", "像素 %d, %d   R %.3f  G %.3f  B %.3f   (%.2f 級)" },
    { "edr_share_copy_path", "複製檔案路徑" },
    { "edr_share_open", "在預設檢視器中開啟" },

    // SDR render mode
    { "sdr_mode_label", "SDR 呈現模式：" },
    { "sdr_mode_natural_hint", "標準：顯示乾淨的 SDR 基礎影像，不會生硬剪裁" },
    { "sdr_mode_filmic_hint", "底片式亮部過渡壓縮：在 SDR 中呈現亮部的雲層與紋理" },
    { "sdr_mode_natural", "自然 SDR" },
    { "sdr_mode_filmic", "底片式過渡" },

    // memory pressure
    { "pressure_normal", "🟢 正常" },
    { "pressure_warning", "偏高（限速）" },
    { "pressure_critical", "🔴 嚴重" },

    // profile summary badges
    { "badge_mid", "中間調" },
    { "badge_power_mid", "中間調強度" },
    { "badge_power_hi", "亮部強度" },
    { "badge_chroma", "色度" },
    { "badge_skin_damp", "膚色抑制" },
    { "badge_scale", "倍率" },
    { "badge_mode", "模式" },
    { "badge_sliders", "滑桿" },
    { "badge_custom", "自訂" },
    { "badge_finetuning", "微調" },

    // menus
    { "menu_settings", "偏好設定…" },
    { "menu_folders", "資料夾" },
    { "menu_open_source", "選擇來源照片資料夾…" },
    { "menu_open_dest", "選擇目的地資料夾…" },
    { "menu_pipeline", "處理" },
    { "menu_start_pipeline", "開始批次處理" },
    { "menu_stop_pipeline", "停止處理" },
    { "menu_refresh_history", "重新整理歷史紀錄" },
    { "menu_check_updates", "檢查更新…" },

    // console messages
    { "log_volume_insufficient", "目標儲存磁碟區空間不足或無法使用：[%@]" },
    { "log_dry_run_activated",
      "Modo de simulación activado: escaneo rápido sin escritura en disco." },
    { "log_engine_start_failed", "無法啟動處理引擎：%@" },

    // tags
    { "tag_rating", "評等" },

    // labels
    { "lbl_rating_filter", "評等篩選：" },
    { "lbl_rating_filter_help", "僅處理評等達到所選星數以上的照片" },

    // recipes
    { "recipes_title", "我的配方預設集" },
    { "recipes_section_my", "我的配方" },
    { "recipes_save_as", "儲存為配方…" },
    { "recipes_save_dialog_title", "儲存為配方預設集" },
    { "recipes_name_placeholder", "配方名稱（例如：夕陽逆光）" },
    { "recipes_empty_hint",
      "尚無自訂配方。調整上方的滑桿，然後按一下「儲存為配方」，即可儲存您的獨特風格。" },
    { "recipes_apply", "套用" },
    { "recipes_applied", "已載入配方：%@" },
    { "recipes_rename", "重新命名" },
    { "recipes_rename_dialog_title", "重新命名配方" },
    { "recipes_delete", "刪除" },
    { "recipes_export_all", "匯出配方…" },
    { "recipes_import", "匯入配方…" },
    { "recipes_imported_success", "已成功匯入 %d 個配方！" },
    { "recipes_btn_save", "儲存" },
    { "recipes_btn_cancel", "取消" },

    // export naming
    { "export_naming_title", "匯出命名與子資料夾分類" },
    { "export_naming_template", "命名範本" },
    { "export_template_help", "可用的預留位置：{original}、{profile}、{date}、{camera}、{rating}" },
    { "export_preview_label", "即時預覽" },
    { "export_subfolder_rule", "子資料夾分類" },

    // subfolder rules
    { "subfolder_rule_none", "無（直接存放於目的地資料夾）" },
    { "subfolder_rule_by_date", "依拍攝日期（YYYY-MM-DD/）" },
    { "subfolder_rule_by_rating", "依星等（5_Stars/、4_Stars/）" },
    { "subfolder_rule_by_profile", "依風格預設集（Portrait/、Landscape/）" },

    // inspector
    { "inspector_title", "中繼資料與 HDR 檢閱器" },
    { "inspector_sec_camera", "相機與鏡頭" },
    { "inspector_sec_exposure", "曝光設定" },
    { "inspector_aperture", "光圈" },
    { "inspector_shutter", "快門速度" },
    { "inspector_iso", "ISO" },
    { "inspector_focal_len", "焦距" },
    { "inspector_exp_bias", "曝光補償" },
    { "inspector_sec_hdr", "Ultra HDR 物理參數與增益圖" },
    { "inspector_peak_stops", "峰值動態餘裕" },
    { "inspector_gainmap_spec", "增益圖標準" },
    { "inspector_faces_detected", "偵測到的臉孔" },
    { "inspector_faces_count", "%d 張臉孔（膚色增益抑制 40%）" },
    { "inspector_faces_none", "無（完整動態增強）" },
    { "inspector_bayer_clip", "拜耳感測器剪裁率" },
    { "inspector_engine_version", "演算法引擎" },
    { "inspector_sec_file_display", "檔案與顯示能力" },
    { "inspector_resolution", "解析度" },
    { "inspector_filesize", "檔案大小" },
    { "inspector_display_cap", "硬體顯示餘裕" },

    // history columns
    { "col_peak_stops", "峰值增益" },
    { "col_exposure", "曝光" },
    { "col_camera_lens", "相機 / 鏡頭" },
    { "col_faces", "臉孔" },
    { "col_bayer_clip", "感測器剪裁" },
    { "col_duration", "耗時" },
    { "col_file_size", "檔案大小" },
    { "col_date", "日期" },
    { "col_status", "狀態" },
    { "col_actions", "動作" },

    // selection
    { "batch_selected_count", "已選取 %d 個項目" },

    // histogram
    { "hist_title", "HDR 動態範圍色階分佈圖" },
    { "hist_sdr", "SDR（0-100 nits）" },
    { "hist_edr", "XDR（100-1600 nits）" },
    { "hist_peak", "峰值亮度" },

    // history table, share menu and inspector (ui/history)
    { "history_delete_confirm_title", "要從歷史紀錄中刪除 %d 筆紀錄嗎？" },
    { "history_delete_confirm_desc", "照片檔案仍保留在磁碟上，只會刪除它們的歷史紀錄項目。" },
    { "share_copy_image", "複製影像" },
    { "share_copy_path", "複製檔案路徑" },
    { "share_open_default", "以預設應用程式開啟" },
    { "inspector_gainmap_none", "此檔案不含增益圖" },
    { "inspector_gainmap_detail", "%@ · %.2f 至 %.2f 級 · %d 個通道" },
    { "inspector_display_hdr", "HDR 顯示器（%.1fx）" },
    { "inspector_display_sdr", "標準 SDR (1.0x)" },

    // donation sheet
    { "menu_sponsor", "支持與贊助 Orvanta…" },
    { "donate_title", "感謝您使用 Orvanta" },
    { "donate_desc",
      "Orvanta 由一位獨立開發者用心打造，對您照片的珍惜不亞於您自己。每一筆捐款都能幫助 Orvanta "
      "維持免費並持續開發。感謝您的支持！" },
    { "donate_btn_open", "開啟捐款頁面" },
    { "donate_btn_later", "以後再說" },

    // update checks (app/UpdateAnnouncer, settings updates page)
    { "update_available_title", "Orvanta %@ 現已推出" },
    { "update_available_body", "新版 Orvanta 已可下載。目前版本為 %@。" },
    { "update_open_page", "開啟下載頁面" },
    { "update_later", "稍後" },
    { "update_up_to_date_title", "已是最新版本" },
    { "update_up_to_date_body", "Orvanta %@ 是目前的最新版本。" },
    { "update_failed_title", "檢查更新失敗" },
    { "update_failed_network", "無法連線至更新伺服器。請檢查網路連線，稍後再試。" },
    { "update_failed_feed", "無法讀取伺服器傳回的更新資訊。" },
    { "update_failed_signature", "更新資訊沒有 Orvanta 開發者的有效簽章，因此未採用。" },
    { "update_packaged_title", "更新由套件管理程式提供" },
    { "update_packaged_body",
      "此 Orvanta 以系統套件形式安裝，新版本由軟體中心或套件管理程式（例如 apt）安裝。" },
    { "update_packaged_note", "此安裝由系統的套件管理程式負責更新。" },
    // Label and value in one text, the colon as the language writes it
    { "metric_elapsed_value", "耗時：%@" },
    { "hist_peak_value", "峰值亮度：%@" },
    // never lose work: quit question, missing engine
    { "quit_running_title", "批次仍在執行" },
    { "quit_running_message",
      "引擎仍在轉換照片。停止時，它會先完成正在處理的照片；已完成的內容不會遺失。" },
    { "quit_stop_and_quit", "停止批次並結束" },
    { "quit_when_done", "批次完成後結束" },
    { "quit_keep_running", "繼續執行" },
    { "status_stopping_to_quit", "正在停止批次，隨後結束..." },
    { "env_engine_missing", "找不到引擎：%@" },
    { "env_engine_not_executable", "引擎無法執行：%@" },
    { "env_missing_libraries", "缺少的程式庫：%@" },
    { "log_engine_missing_start",
      "無法開始：%@ 沒有引擎。請安裝 orvanta_engine，或將 ORVANTA_BIN 設為其路徑。" },
    // recipe messages, engine version, singular forms of counts
    { "recipes_exported_success", "配方匯出成功！" },
    { "recipes_export_failed", "配方匯出失敗：%@" },
    { "recipes_import_failed", "配方匯入失敗：%@" },
    { "inspector_peak_value", "+%.2f 級（%.1fx）" },
    { "history_row_success", "成功" },
    { "history_row_failed", "失敗" },
    { "inspector_engine_version_unknown", "無法取得（找不到引擎）" },
    // History database locked by another program
    { "history_busy", "歷史記錄忙碌中，正在重試…" },
    // Batch: pause, nothing to do, failure list
    { "status_nothing_to_do", "無需處理：未找到相符的 RAW+JPG 配對" },
    { "status_paused", "已暫停於 [%d / %d]" },
    { "status_resumed", "已繼續於 [%d / %d]" },
    { "btn_pause", "暫停" },
    { "btn_resume", "繼續" },
    { "menu_pause_pipeline", "暫停或繼續批次處理" },
    { "card_paused", "已暫停" },
    { "card_failed_count", "%d 張失敗" },
    { "btn_show_failures", "檢視失敗項目" },
    { "failures_title", "失敗的照片" },
    { "failures_summary", "上一批次未交付：%d" },
    { "failures_column_photo", "照片" },
    { "failures_column_reason", "原因" },
    { "failures_no_reason", "引擎未提供原因" },
    { "failures_reveal", "在檔案管理員中顯示" },
    { "failures_retry", "重試失敗項目" },
    { "failures_close", "關閉" },
    // Name of a destination that is not a volume of its own
    { "volume_local_disk", "本機磁碟" },
    // Watching a folder after the batch
    { "opt_watch_folder", "持續監看資料夾" },
    { "opt_watch_folder_help",
      "批次處理結束後，每當有新的 RAW+JPG "
      "照片組抵達就立即轉換（適用於連線拍攝），直到按下「停止處理」" },
    { "card_watching", "正在監看 %@" },
    { "card_watch_lost_title", "正在等待資料夾" },
    { "card_watch_count", "自開始以來已轉換 %d 張照片" },
    { "card_watch_last", "最後一張照片：%@" },
    { "card_watch_lost", "監看的資料夾已不存在（已移動或刪除）。正在等待它恢復…" },
    { "card_watch_lost_unmounted", "存放監看資料夾的磁碟已被移除。正在等待它恢復…" },
    { "status_watching", "正在監看 %@ 中的新照片" },
    // What made a photo fail, as the failure list says it
    { "failure_jpg_unreadable", "無法讀取相機 JPG" },
    { "failure_raw_unreadable", "無法讀取 RAW 檔案" },
    { "failure_colour_unmatched", "JPG 與 RAW 的色彩不一致，因此未產生 HDR 版本" },
    { "failure_encode_failed", "無法產生 Ultra HDR 檔案" },
    { "failure_write_failed", "無法將結果儲存到目的地資料夾" },
    { "failure_destination_gone", "批次處理期間目的地資料夾已消失" },
};
} // namespace

std::span<const StringEntry> zhHant()
{
    return kEntries;
}

} // namespace orvanta::strings
