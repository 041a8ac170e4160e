// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Japanese texts.
#include "i18n/StringTables.h"

namespace orvanta::strings {
namespace {
constexpr StringEntry kEntries[] = {
    // app
    { "app_title", "Orvanta" },
    { "app_subtitle", "プロ向け Ultra HDR 写真処理オートメーション" },

    // status line
    { "status_env_ready", "環境準備完了" },
    { "status_env_missing", "依存関係が不足" },
    { "status_ready", "準備完了" },
    { "status_processing", "Procesando..." },
    { "status_failed", "Fallido" },
    { "status_scanning", "元画像をスキャン中..." },
    { "status_scan_done", "スキャン完了：未処理 %d 件" },
    { "status_processing_item", "処理中 [%d/%d] %@..." },
    { "status_item_completed", "完了 [%d/%d] %@ (+%.2fst)" },
    { "status_item_failed", "失敗 [%d/%d] %@" },
    { "status_batch_completed", "バッチ処理完了（成功：%d、失敗：%d）" },
    { "status_all_up_to_date", "すべて最新の状態です（%d 件スキップ、未処理ファイルなし）" },
    { "status_cancelled", "ユーザーによって中止されました" },
    { "status_cancelling", "停止中..." },
    { "status_dryrun_completed", "ドライラン完了：合計 %d 件、未処理 %d 件、スキップ %d 件" },
    { "status_abnormal", "異常終了しました（終了コード %d）" },

    // tabs
    { "tab_live_run", "ライブ処理" },
    { "tab_history", "履歴と隔離" },

    // footer
    { "footer_storage_safe", "%@ マウント済み・正常（空き %.1f GB）" },

    // notifications
    { "notif_batch_completed_title", "バッチ処理が完了しました" },
    { "notif_action_open_folder", "ファイルマネージャーで表示" },
    { "notif_batch_success_body", "%d 枚の Ultra HDR 写真を %.1f 秒で書き出しました。" },
    { "notif_batch_failed_body", "成功 %d 件、失敗 %d 件。" },

    // folder bar
    { "folder_source_title", "ソースフォルダー" },
    { "folder_source_placeholder", "RAW+JPG のソースフォルダーを選択" },
    { "folder_dest_title", "書き出し先フォルダー" },
    { "folder_dest_placeholder", "Ultra HDR の書き出し先フォルダーを選択" },

    // buttons
    { "btn_browse", "参照..." },
    { "btn_start_batch", "バッチ開始" },
    { "btn_stop", "処理を停止" },
    { "btn_refresh", "更新" },
    { "btn_settings", "環境設定（Ctrl+,）" },
    { "btn_done", "完了" },
    { "btn_custom_columns", "列のカスタマイズ" },
    { "btn_select_all", "すべて選択" },
    { "btn_deselect_all", "選択を解除" },
    { "btn_batch_delete", "選択項目を削除" },
    { "btn_batch_reprocess", "選択項目を再処理" },
    { "btn_toggle_console", "コンソールログ" },
    { "btn_clear_console", "コンソールをクリア" },
    { "btn_xdr_compare_pill", "HDR 比較" },
    { "btn_zebra", "ゼブラ（Z）" },
    { "btn_histogram", "ヒストグラム（H）" },
    { "btn_check_now", "今すぐ確認" },
    { "btn_close", "閉じる" },
    { "btn_ok", "OK" },

    // dialogs
    { "dialog_select_folder", "フォルダーを選択" },
    { "dialog_error_title", "隔離エラーの詳細" },
    { "dialog_ok", "OK" },
    { "dialog_file_missing_title", "Foto no encontrada en el disco" },
    { "dialog_file_missing_desc",
      "El archivo [%@] se ha movido, renombrado o eliminado de su ubicación original." },

    // batch options
    { "opt_force_reprocess", "強制的に再処理" },
    { "opt_force_reprocess_help", "データベースの履歴を無視して、すべての写真を再生成します" },
    { "opt_backlit_fill", "AI 逆光補正" },
    { "opt_backlit_fill_help",
      "逆光シーンで影になった顔や被写体をやさしく明るくし、明るい背景はそのまま保ちます" },
    { "opt_dry_run", "ドライランモード" },
    { "opt_dry_run_help",
      "ソースフォルダーをスキャンして処理対象を報告します。ファイルは一切書き込みません" },
    { "opt_single_stem", "単一ファイル指定：" },
    { "opt_single_stem_placeholder", "例：DSC04223（任意）" },

    // progress card
    { "card_processing", "バッチ処理中" },
    { "card_idle", "待機中" },
    { "card_pairs_found", "%d 組を検出" },
    { "card_progress_ratio", "[%d / %d]  %d%%" },
    // main window: time left in the running batch, quitting
    { "card_time_left", "残り %@" },
    { "menu_quit", "Orvanta を終了" },

    // progress metrics
    { "metric_faces", "顔：%d" },
    { "metric_peak_gain", "ピークゲイン：+%.2fst" },
    { "metric_bayer_clip", "センサー飽和：%.3f%%" },
    { "metric_duration", "経過時間：%.1f 秒" },
    { "metric_elapsed", "経過時間" },
    { "metric_throughput_speed", "%.1f 秒/枚" },

    // console
    { "console_title", "ライブコンソール" },
    { "console_auto_scroll", "自動スクロール" },
    { "console_clear", "クリア" },
    { "console_waiting", "エンジンの出力を待機中..." },
    { "console_copy_all", "すべてコピー" },
    { "console_copied", "コピーしました" },

    // dashboard figures
    { "kpi_total_processed", "総処理数" },
    { "kpi_success_delivered", "成功 / 書き出し済み" },
    { "kpi_quarantine_failed", "隔離 / 失敗" },
    { "kpi_avg_duration", "平均処理時間" },

    // units
    { "unit_photos", "枚" },
    { "unit_ultra_hdr", "Ultra HDR" },
    { "unit_attention_needed", "要確認" },
    { "unit_sec_per_photo", "秒/枚" },
    { "unit_faces", "顔 %d" },

    // history
    { "history_search_placeholder", "ファイル名で検索（例：DSC04223）..." },
    { "history_empty", "処理履歴がありません" },
    { "history_loading_more", "さらに写真を読み込み中..." },
    { "history_all_loaded", "全 %d 枚の写真を読み込みました" },

    // errors
    { "error_unknown", "不明なエラー" },

    // actions
    { "action_reveal_finder", "ファイルマネージャーで表示" },
    { "action_quicklook", "クイックプレビュー（スペース）" },
    { "action_file_offline", "ファイルがオフライン" },
    { "action_view_error", "エラーの詳細を表示" },
    { "action_switch_language", "言語を変更" },
    { "action_edr_compare", "HDR 分割比較" },
    { "action_airdrop", "メールで送信" },
    { "action_share_sheet", "共有…" },
    { "action_inspector", "メタデータインスペクターを表示..." },

    // settings window
    { "settings_title", "環境設定" },
    { "settings_tab_perf", "パフォーマンス" },
    { "settings_tab_paths", "パス" },
    { "settings_tab_safety", "安全性と診断" },
    { "settings_tab_styles", "スタイルプリセット" },
    { "settings_workers_label", "同時処理ワーカー数" },
    { "settings_workers_auto", "自動（アダプティブ）" },
    { "settings_workers_1", "1 ワーカー（エコ）" },
    { "settings_workers_2", "2 ワーカー（バランス）" },
    { "settings_workers_3", "3 ワーカー（高速）" },
    { "settings_workers_4", "4 ワーカー（高性能）" },
    { "settings_workers_6", "6 ワーカー（バースト）" },
    { "settings_workers_8", "8 ワーカー（最大）" },
    { "settings_workers_desc",
      "「自動」では、使用可能な CPU "
      "コア数とメモリ量に応じてエンジンが並列ワーカー数を決定します。ワーカーを増やすとバッチ処理は"
      "早く終わりますが、メモリ使用量が増えます。" },
    { "settings_throttle_label", "メモリ負荷に応じた動的スロットリング" },
    { "settings_throttle_desc",
      "システムのメモリが不足するとエンジンの処理速度を落とし、スワップを避けて長時間のバッチ処理を"
      "安定させます。" },
    { "settings_probe_title", "ハードウェアとメモリのリアルタイム監視" },
    { "settings_canary_label", "外部ストレージ切断保護" },
    { "settings_canary_desc",
      "書き出し中に保存先ドライブが切断されたり、空き容量が不足したりした場合に、バッチ処理を安全に"
      "停止します。" },
    { "settings_masks_label", "デバッグ用マスクとゲインマップを書き出す" },
    { "settings_sound_label", "完了通知サウンド" },
    { "settings_sound_desc", "バッチ処理の完了時に、通知とともにサウンドを再生します。" },
    { "settings_btn_open_logs", "ログをファイルマネージャーで表示" },
    { "settings_btn_open_db", "状態 DB をファイルマネージャーで表示" },
    { "settings_core_hardened",
      "堅牢なコア：エンジンは独立したプロセスで動作し、処理を終えた写真はすべて状態データベースに記"
      "録されます。" },
    { "settings_styles_desc",
      "撮影ジャンルに合わせた Ultra HDR "
      "レンダリングプロファイルを選択してください。選択したプロファイルは、以降のすべてのバッチ処理"
      "に適用されます。" },
    { "settings_diagnostics_title", "システム診断とログ" },
    { "settings_probe_refresh_help", "ハードウェアとメモリの情報を更新" },
    { "settings_probe_ram", "物理メモリ" },
    { "settings_probe_arch", "アーキテクチャ" },
    { "settings_probe_pressure", "メモリ負荷" },
    { "settings_default_source_dir", "既定の元画像フォルダー" },
    { "settings_default_dest_dir", "既定の Ultra HDR 出力フォルダー" },
    { "settings_tab_updates", "アップデート" },
    { "settings_updates_title", "ソフトウェアアップデート" },
    { "settings_auto_check", "アップデートを自動的に確認" },
    { "settings_auto_check_desc",
      "Orvanta は 1 日に 1 回新しいバージョンを確認し、利用可能になるとお知らせします。" },
    { "settings_manual_check", "手動で確認" },
    { "settings_manual_check_desc", "Orvanta の新しいバージョンを今すぐ確認します。" },
    { "settings_tab_about", "情報と法的事項" },
    { "settings_about_tagline",
      "RAW+JPG のペアを、あらゆる HDR ディスプレイに対応した鮮やかな Ultra HDR "
      "写真に変換します。" },
    { "settings_about_engine_badge", "Orvanta Ultra HDR エンジン搭載" },
    { "settings_about_ack_title", "謝辞" },
    { "settings_about_ack_desc",
      "Orvanta "
      "は以下のオープンソースプロジェクトを基に開発されています。作者とコミュニティの皆様に深く感謝"
      "いたします。" },
    // settings window: naming template warnings and the updates page
    { "export_warning_forbidden_chars", "ファイル名に使用できない文字：%@" },
    { "export_warning_unknown_placeholders",
      "不明なプレースホルダー（入力どおりに出力されます）：%@" },
    { "settings_updates_unavailable",
      "このビルドの Orvanta ではアップデートの確認が設定されていません。" },

    // style presets
    { "style_profile_title", "スタイルプリセット" },

    // style profiles
    { "profile_default_title", "標準（忠実再現）" },
    { "profile_default_desc",
      "自然なダイナミックレンジで、忠実なハイライトのロールオフとバランスの取れたコントラストを実"
      "現" },
    { "profile_portrait_title", "ポートレート（ソフト）" },
    { "profile_portrait_desc",
      "強い光の下でも、柔らかなハイライトの階調と、明るく自然な肌色を再現" },
    { "profile_landscape_title", "風景（メリハリ）" },
    { "profile_landscape_desc",
      "マイクロコントラストとハイライトの輝きを強調し、鮮やかでメリハリのある仕上がりに" },
    { "profile_cinematic_title", "シネマティックフィルム" },
    { "profile_cinematic_desc",
      "暖かみのあるフィルム調トーンカーブで、シャドウのディテールを豊かに残し、ハイライトを穏やかに"
      "圧縮" },
    { "profile_custom_title", "カスタム微調整" },
    { "profile_custom_desc", "中間調、ハイライト圧縮、彩度拡張、肌の保護を細かく調整" },

    // custom fine-tuning
    { "custom_sliders_title", "微調整パラメーター" },
    { "custom_reset_defaults", "初期設定に戻す" },

    // sliders
    { "slider_mid_target", "中間調の基準レベル" },
    { "slider_power_mid", "中間調コントラスト" },
    { "slider_power_hi", "ハイライトロールオフの滑らかさ" },
    { "slider_chroma_boost", "ハイライトの彩度" },
    { "slider_skin_damp", "AI 肌色保護" },
    { "slider_max", "最大" },

    // drag and drop
    { "drop_hint_source", "ドロップしてソースフォルダーに設定" },
    { "drop_overlay_title", "写真またはフォルダーをここにドロップ" },
    { "drop_overlay_subtitle", "RAW/JPG フォルダーまたは写真ファイルをドロップして読み込みます" },
    { "drop_success_folder", "ソースフォルダーを読み込みました：%@" },
    { "drop_success_photos", "%d 枚の写真を読み込みました：%@" },

    // filters
    { "filter_all", "すべて" },
    { "filter_success", "成功" },
    { "filter_failed", "失敗" },
    { "filter_tooltip", "ステータスで絞り込み" },
    { "filter_no_match", "現在のフィルターに一致する写真はありません" },
    { "filter_rating_all", "すべてのレーティング" },
    { "filter_rating_1", "★1 以上" },
    { "filter_rating_2", "★2 以上" },
    { "filter_rating_3", "★3 以上" },
    { "filter_rating_4", "★4 以上" },
    { "filter_rating_5", "★5 のみ" },

    // sorting
    { "sort_date", "日付" },
    { "sort_peak_stops", "ピークゲイン" },
    { "sort_faces", "顔の数" },
    { "sort_duration", "処理時間" },
    { "sort_name", "名前" },
    { "sort_tooltip", "属性で並べ替え" },
    { "sort_asc", "昇順（小さい順）" },
    { "sort_desc", "降順（大きい順）" },

    // compare window
    { "edr_sdr_banner_title", "⚠️ 現在のディスプレイは SDR です（%@）" },
    { "edr_sdr_banner_desc",
      "ハードウェアのピーク輝度は約 350 nits のため、Ultra HDR の 1600 nits "
      "のハイライトを物理的に表示できません。クリッピング防止が有効です。本来の輝きは HDR "
      "ディスプレイでご覧ください。" },
    { "edr_sdr_screen_notice",
      "SDR 画面：ここでは Ultra HDR のハイライトを本来の明るさで表示できません。" },
    { "edr_window_title", "HDR 分割比較" },
    { "edr_badge_xdr", "Liquid Retina XDR: 1600 nits (EDR 4.0x)" },
    { "edr_badge_sdr", "標準ディスプレイ：500 nits (SDR 1.0x)" },
    { "edr_label_sdr", "カメラオリジナル（SDR）" },
    { "edr_label_hdr", "Ultra HDR（ピーク 1600 nits）" },
    { "edr_drag_hint", "スライダーをドラッグして比較 • スペースキーで切り替え" },
    { "edr_mode_split", "分割表示" },
    { "edr_mode_hdr", "Ultra HDR のみ" },
    { "edr_mode_sdr", "SDR のみ" },
    { "edr_nav_prev", "前へ（←）" },
    { "edr_nav_next", "次へ（→）" },
    { "edr_zoom_hint",
      "ピンチまたは Ctrl+ホイールでズーム • ダブルクリックで 100% 表示 • スペースキーで切り替え • "
      "Tab で画像のみ表示" },
    // compare window: viewer tools
    { "edr_no_gl", "HDR ビューアーには OpenGL が必要ですが、このディスプレイでは利用できません。" },
    { "edr_loading", "写真を読み込み中…" },
    { "edr_sdr_from_hdr",
      "カメラの JPEG がありません：左側には Ultra HDR ファイル自身の SDR 画像を表示しています。" },
    { "edr_zebra_highlights", "ハイライトのゼブラ（以上）" },
    { "edr_zebra_shadows", "シャドウのゼブラ（未満）" },
    { "edr_simulate_headroom", "擬似ヘッドルーム" },
    { "edr_pixel_readout", "ピクセル %d, %d   R %.3f  G %.3f  B %.3f   (%.2f 段)" },
    { "edr_share_copy_path", "ファイルパスをコピー" },
    { "edr_share_open", "既定のビューアーで開く" },

    // SDR render mode
    { "sdr_mode_label", "SDR レンダリングモード：" },
    { "sdr_mode_natural_hint",
      "標準：クリーンな SDR ベース画像を表示し、強いクリッピングを避けます" },
    { "sdr_mode_filmic_hint",
      "フィルム調ロールオフ圧縮：SDR でもハイライト部の雲や質感を再現します" },
    { "sdr_mode_natural", "ナチュラル SDR" },
    { "sdr_mode_filmic", "フィルム調ロールオフ" },

    // memory pressure
    { "pressure_normal", "🟢 正常" },
    { "pressure_warning", "上昇（スロットリング）" },
    { "pressure_critical", "🔴 危険" },

    // profile summary badges
    { "badge_mid", "中間調" },
    { "badge_power_mid", "中間調カーブ" },
    { "badge_power_hi", "ハイライトカーブ" },
    { "badge_chroma", "彩度" },
    { "badge_skin_damp", "肌保護" },
    { "badge_scale", "スケール" },
    { "badge_mode", "モード" },
    { "badge_sliders", "スライダー" },
    { "badge_custom", "カスタム" },
    { "badge_finetuning", "微調整" },

    // menus
    { "menu_settings", "環境設定..." },
    { "menu_folders", "フォルダー" },
    { "menu_open_source", "ソースフォルダーを選択..." },
    { "menu_open_dest", "書き出し先フォルダーを選択..." },
    { "menu_pipeline", "処理" },
    { "menu_start_pipeline", "バッチ処理を開始" },
    { "menu_stop_pipeline", "処理を停止" },
    { "menu_refresh_history", "履歴を更新" },
    { "menu_check_updates", "アップデートを確認..." },

    // console messages
    { "log_volume_insufficient",
      "保存先ボリュームの空き容量が不足しているか、利用できません：[%@]" },
    { "log_dry_run_activated",
      "Modo de simulación activado: escaneo rápido sin escritura en disco." },
    { "log_engine_start_failed", "処理エンジンを起動できませんでした：%@" },

    // tags
    { "tag_rating", "レーティング" },

    // labels
    { "lbl_rating_filter", "レーティングフィルター：" },
    { "lbl_rating_filter_help", "選択した星の数以上のレーティングが付いた写真のみを処理します" },

    // recipes
    { "recipes_title", "マイプリセットレシピ" },
    { "recipes_section_my", "マイレシピ" },
    { "recipes_save_as", "レシピとして保存..." },
    { "recipes_save_dialog_title", "プリセットレシピとして保存" },
    { "recipes_name_placeholder", "レシピ名（例：夕日の逆光）" },
    { "recipes_empty_hint",
      "カスタムレシピはまだありません。上のスライダーを調整し、「レシピとして保存」をクリックして、"
      "あなただけのスタイルを保存しましょう。" },
    { "recipes_apply", "適用" },
    { "recipes_applied", "レシピを読み込みました：%@" },
    { "recipes_rename", "名前を変更" },
    { "recipes_rename_dialog_title", "レシピ名の変更" },
    { "recipes_delete", "削除" },
    { "recipes_export_all", "レシピを書き出し..." },
    { "recipes_import", "レシピを読み込み..." },
    { "recipes_imported_success", "%d 件のレシピを読み込みました！" },
    { "recipes_btn_save", "保存" },
    { "recipes_btn_cancel", "キャンセル" },

    // export naming
    { "export_naming_title", "書き出し時のファイル名とサブフォルダー構成" },
    { "export_naming_template", "ファイル名テンプレート" },
    { "export_template_help",
      "使用できるプレースホルダー：{original}, {profile}, {date}, {camera}, {rating}" },
    { "export_preview_label", "ライブプレビュー" },
    { "export_subfolder_rule", "サブフォルダー構成" },

    // subfolder rules
    { "subfolder_rule_none", "なし（書き出し先フォルダーに直接保存）" },
    { "subfolder_rule_by_date", "撮影日別（YYYY-MM-DD/）" },
    { "subfolder_rule_by_rating", "レーティング別（5_Stars/, 4_Stars/）" },
    { "subfolder_rule_by_profile", "スタイルプロファイル別（Portrait/, Landscape/）" },

    // inspector
    { "inspector_title", "メタデータと HDR のインスペクター" },
    { "inspector_sec_camera", "カメラとレンズ" },
    { "inspector_sec_exposure", "露出設定" },
    { "inspector_aperture", "絞り値" },
    { "inspector_shutter", "シャッタースピード" },
    { "inspector_iso", "ISO 感度" },
    { "inspector_focal_len", "焦点距離" },
    { "inspector_exp_bias", "露出補正" },
    { "inspector_sec_hdr", "Ultra HDR の物理特性とゲインマップ" },
    { "inspector_peak_stops", "ピーク ダイナミックヘッドルーム" },
    { "inspector_gainmap_spec", "ゲインマップ規格" },
    { "inspector_faces_detected", "検出された顔" },
    { "inspector_faces_count", "%d 人の顔（肌の抑制 40%）" },
    { "inspector_faces_none", "なし（ダイナミックブースト最大）" },
    { "inspector_bayer_clip", "ベイヤーセンサー飽和率" },
    { "inspector_engine_version", "アルゴリズムエンジン" },
    { "inspector_sec_file_display", "ファイルと表示性能" },
    { "inspector_resolution", "解像度" },
    { "inspector_filesize", "ファイルサイズ" },
    { "inspector_display_cap", "ディスプレイのヘッドルーム" },

    // history columns
    { "col_peak_stops", "ピークゲイン" },
    { "col_exposure", "露出" },
    { "col_camera_lens", "カメラ / レンズ" },
    { "col_faces", "顔" },
    { "col_bayer_clip", "センサー飽和" },
    { "col_duration", "処理時間" },
    { "col_file_size", "ファイルサイズ" },
    { "col_date", "日付" },
    { "col_status", "ステータス" },
    { "col_actions", "操作" },

    // selection
    { "batch_selected_count", "%d 件を選択中" },

    // histogram
    { "hist_title", "HDR ダイナミックレンジ ヒストグラム" },
    { "hist_sdr", "SDR (0-100 nits)" },
    { "hist_edr", "XDR (100-1600 nits)" },
    { "hist_peak", "ピーク輝度" },

    // history table, share menu and inspector (ui/history)
    { "history_delete_confirm_title", "履歴から %d 件の記録を削除しますか？" },
    { "history_delete_confirm_desc",
      "写真ファイルはディスクに残り、履歴の項目だけが削除されます。" },
    { "share_copy_image", "画像をコピー" },
    { "share_copy_path", "ファイルパスをコピー" },
    { "share_open_default", "既定のアプリケーションで開く" },
    { "inspector_gainmap_none", "このファイルにはゲインマップがありません" },
    { "inspector_gainmap_detail", "%@ · %.2f〜%.2f 段 · %d チャンネル" },
    { "inspector_display_hdr", "HDR ディスプレイ（%.1fx）" },
    { "inspector_display_sdr", "標準 SDR (1.0x)" },

    // donation sheet
    { "menu_sponsor", "Orvanta を支援する..." },
    { "donate_title", "Orvanta をご利用いただきありがとうございます" },
    { "donate_desc",
      "Orvanta "
      "は、あなたと同じように写真を大切に思う個人開発者が制作しています。いただいたご寄付は、Orvant"
      "a を無料で提供し、開発を続けていくための支えになります。ご支援ありがとうございます！" },
    { "donate_btn_open", "寄付ページを開く" },
    { "donate_btn_later", "また今度" },

    // update checks (app/UpdateAnnouncer, settings updates page)
    { "update_available_title", "Orvanta %@ が利用可能です" },
    { "update_available_body",
      "新しいバージョンの Orvanta をダウンロードできます。現在のバージョンは %@ です。" },
    { "update_open_page", "ダウンロードページを開く" },
    { "update_later", "後で" },
    { "update_up_to_date_title", "最新の状態です" },
    { "update_up_to_date_body", "Orvanta %@ が最新バージョンです。" },
    { "update_failed_title", "アップデートの確認に失敗しました" },
    { "update_failed_network",
      "アップデートサーバーに接続できませんでした。インターネット接続を確認して、しばらくしてからも"
      "う一度お試しください。" },
    { "update_failed_feed", "サーバーから受け取ったアップデート情報を読み取れませんでした。" },
    { "update_failed_signature",
      "アップデート情報に Orvanta 開発者の有効な署名がないため、使用しませんでした。" },
    { "update_packaged_title", "アップデートはパッケージマネージャーから提供されます" },
    { "update_packaged_body",
      "この Orvanta "
      "はシステムのパッケージとしてインストールされています。新しいバージョンはソフトウェアセンター"
      "またはパッケージマネージャー（apt など）からインストールされます。" },
    { "update_packaged_note",
      "このインストールはシステムのパッケージマネージャーで更新されます。" },
    // Label and value in one text, the colon as the language writes it
    { "metric_elapsed_value", "経過時間：%@" },
    { "hist_peak_value", "ピーク輝度：%@" },
    // never lose work: quit question, missing engine
    { "quit_running_title", "バッチを処理中です" },
    { "quit_running_message",
      "エンジンはまだ写真を変換しています。停止すると、処理中の写真を仕上げてから止まります。完了済"
      "みのものは失われません。" },
    { "quit_stop_and_quit", "バッチを停止して終了" },
    { "quit_when_done", "バッチ完了後に終了" },
    { "quit_keep_running", "処理を続ける" },
    { "status_stopping_to_quit", "バッチを停止しています。停止後に終了します..." },
    { "env_engine_missing", "エンジンが見つかりません：%@" },
    { "env_engine_not_executable", "エンジンを実行できません：%@" },
    { "env_missing_libraries", "不足しているライブラリ：%@" },
    { "log_engine_missing_start",
      "開始できません：%@ にエンジンがありません。orvanta_engine をインストールするか、ORVANTA_BIN "
      "にパスを設定してください。" },
    // recipe messages, engine version, singular forms of counts
    { "recipes_exported_success", "レシピを書き出しました！" },
    { "recipes_export_failed", "レシピを書き出せませんでした：%@" },
    { "recipes_import_failed", "レシピを読み込めませんでした：%@" },
    { "inspector_peak_value", "+%.2f 段（%.1fx）" },
    { "history_row_success", "成功" },
    { "history_row_failed", "失敗" },
    { "inspector_engine_version_unknown", "取得できません（エンジンが見つかりません）" },
    // History database locked by another program
    { "history_busy", "履歴は使用中です。再試行しています…" },
    // Batch: pause, nothing to do, failure list
    { "status_nothing_to_do", "処理対象なし：該当する RAW+JPG ペアが見つかりません" },
    { "status_paused", "一時停止中 [%d / %d]" },
    { "status_resumed", "再開 [%d / %d]" },
    { "btn_pause", "一時停止" },
    { "btn_resume", "再開" },
    { "menu_pause_pipeline", "バッチを一時停止／再開" },
    { "card_paused", "一時停止中" },
    { "card_failed_count", "%d 件失敗" },
    { "btn_show_failures", "失敗を表示" },
    { "failures_title", "失敗した写真" },
    { "failures_summary", "前回のバッチで書き出せなかった写真：%d" },
    { "failures_column_photo", "写真" },
    { "failures_column_reason", "理由" },
    { "failures_no_reason", "エンジンから理由が返されませんでした" },
    { "failures_reveal", "ファイルで表示" },
    { "failures_retry", "失敗分を再試行" },
    { "failures_close", "閉じる" },
    // Name of a destination that is not a volume of its own
    { "volume_local_disk", "ローカルディスク" },
    // Watching a folder after the batch
    { "opt_watch_folder", "フォルダーの監視を続ける" },
    { "opt_watch_folder_help",
      "バッチの後も、新しい RAW+JPG "
      "ペアが届くたびに変換します（テザー撮影向け）。「処理を停止」を押すまで続きます" },
    { "card_watching", "%@ を監視中" },
    { "card_watch_lost_title", "フォルダーを待っています" },
    { "card_watch_count", "開始から %d 枚を変換" },
    { "card_watch_last", "最後の写真：%@" },
    { "card_watch_lost",
      "監視中のフォルダーが見つかりません（移動または削除）。戻るのを待っています…" },
    { "card_watch_lost_unmounted",
      "監視中のフォルダーのディスクが取り外されました。戻るのを待っています…" },
    { "status_watching", "%@ で新しい写真を監視中" },
    // What made a photo fail, as the failure list says it
    { "failure_jpg_unreadable", "カメラのJPGを読み込めません" },
    { "failure_raw_unreadable", "RAWファイルを読み込めません" },
    { "failure_colour_unmatched", "JPGの色がRAWと一致しないため、HDR版は作成されませんでした" },
    { "failure_encode_failed", "Ultra HDRファイルを作成できませんでした" },
    { "failure_write_failed", "結果を保存先フォルダーに保存できませんでした" },
    { "failure_destination_gone", "バッチの処理中に保存先フォルダーが見つからなくなりました" },
};
} // namespace

std::span<const StringEntry> ja()
{
    return kEntries;
}

} // namespace orvanta::strings
