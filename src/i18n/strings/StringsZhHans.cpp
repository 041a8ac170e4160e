// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Simplified Chinese texts.
#include "i18n/StringTables.h"

namespace orvanta::strings {
namespace {
constexpr StringEntry kEntries[] = {
    // app
    { "app_title", "Orvanta" },
    { "app_subtitle", "专业 Ultra HDR 摄影自动化处理" },

    // status line
    { "status_env_ready", "环境就绪" },
    { "status_env_missing", "缺少依赖组件" },
    { "status_ready", "就绪" },
    { "status_processing", "Procesando..." },
    { "status_failed", "Fallido" },
    { "status_scanning", "正在扫描源照片…" },
    { "status_scan_done", "扫描完成：%d 张待处理" },
    { "status_processing_item", "正在处理 [%d/%d] %@…" },
    { "status_item_completed", "已完成 [%d/%d] %@（+%.2fst）" },
    { "status_item_failed", "失败 [%d/%d] %@" },
    { "status_batch_completed", "批处理完成（成功：%d，失败：%d）" },
    { "status_all_up_to_date", "所有项目均已是最新（跳过 %d 项，无待处理文件）" },
    { "status_cancelled", "已被用户取消" },
    { "status_cancelling", "正在停止…" },
    { "status_dryrun_completed", "模拟运行完成：共 %d 张，待处理 %d 张，跳过 %d 张" },
    { "status_abnormal", "异常终止（退出代码 %d）" },

    // tabs
    { "tab_live_run", "实时批处理" },
    { "tab_history", "历史与隔离区" },

    // footer
    { "footer_storage_safe", "%@ 已挂载，状态良好（可用 %.1f GB）" },

    // notifications
    { "notif_batch_completed_title", "批处理已完成" },
    { "notif_action_open_folder", "在文件管理器中显示" },
    { "notif_batch_success_body", "已成功交付 %d 张 Ultra HDR 照片，用时 %.1f 秒。" },
    { "notif_batch_failed_body", "%d 张成功，%d 张失败。" },

    // folder bar
    { "folder_source_title", "源文件夹" },
    { "folder_source_placeholder", "选择 RAW+JPG 源文件夹" },
    { "folder_dest_title", "输出文件夹" },
    { "folder_dest_placeholder", "选择 Ultra HDR 输出文件夹" },

    // buttons
    { "btn_browse", "浏览…" },
    { "btn_start_batch", "开始批处理" },
    { "btn_stop", "停止处理" },
    { "btn_refresh", "刷新" },
    { "btn_settings", "偏好设置（Ctrl+,）" },
    { "btn_done", "完成" },
    { "btn_custom_columns", "自定义列" },
    { "btn_select_all", "全选" },
    { "btn_deselect_all", "取消全选" },
    { "btn_batch_delete", "删除所选" },
    { "btn_batch_reprocess", "重新处理所选" },
    { "btn_toggle_console", "控制台日志" },
    { "btn_clear_console", "清空控制台" },
    { "btn_xdr_compare_pill", "HDR 对比" },
    { "btn_zebra", "斑马纹（Z）" },
    { "btn_histogram", "直方图（H）" },
    { "btn_check_now", "立即检查" },
    { "btn_close", "关闭" },
    { "btn_ok", "确定" },

    // dialogs
    { "dialog_select_folder", "选择文件夹" },
    { "dialog_error_title", "隔离错误详情" },
    { "dialog_ok", "确定" },
    { "dialog_file_missing_title", "Foto no encontrada en el disco" },
    { "dialog_file_missing_desc",
      "El archivo [%@] se ha movido, renombrado o eliminado de su ubicación original." },

    // batch options
    { "opt_force_reprocess", "强制重新处理" },
    { "opt_force_reprocess_help", "忽略数据库中的历史记录，重新生成所有照片" },
    { "opt_backlit_fill", "AI 逆光补光" },
    { "opt_backlit_fill_help",
      "在逆光场景中柔和地提亮处于阴影中的人脸和主体，同时保持明亮的背景不受影响" },
    { "opt_dry_run", "模拟运行模式" },
    { "opt_dry_run_help", "扫描源文件夹并报告将要处理的内容，不写入任何文件" },
    { "opt_single_stem", "单一目标：" },
    { "opt_single_stem_placeholder", "例如 DSC04223（可选）" },

    // progress card
    { "card_processing", "正在批处理" },
    { "card_idle", "空闲" },
    { "card_pairs_found", "找到 %d 组照片" },
    { "card_progress_ratio", "[%d / %d]  %d%%" },
    // main window: time left in the running batch, quitting
    { "card_time_left", "剩余 %@" },
    { "menu_quit", "退出 Orvanta" },

    // progress metrics
    { "metric_faces", "人脸：%d" },
    { "metric_peak_gain", "峰值增益：+%.2fst" },
    { "metric_bayer_clip", "传感器剪切：%.3f%%" },
    { "metric_duration", "耗时：%.1f 秒" },
    { "metric_elapsed", "耗时" },
    { "metric_throughput_speed", "%.1f 秒/张" },

    // console
    { "console_title", "实时控制台" },
    { "console_auto_scroll", "自动滚动" },
    { "console_clear", "清空" },
    { "console_waiting", "正在等待引擎输出…" },
    { "console_copy_all", "全部复制" },
    { "console_copied", "已复制！" },

    // dashboard figures
    { "kpi_total_processed", "处理总数" },
    { "kpi_success_delivered", "成功 / 已交付" },
    { "kpi_quarantine_failed", "隔离 / 失败" },
    { "kpi_avg_duration", "平均耗时" },

    // units
    { "unit_photos", "张照片" },
    { "unit_ultra_hdr", "Ultra HDR" },
    { "unit_attention_needed", "需要关注" },
    { "unit_sec_per_photo", "秒/张" },
    { "unit_faces", "%d 张人脸" },

    // history
    { "history_search_placeholder", "搜索照片文件名（例如 DSC04223）…" },
    { "history_empty", "暂无处理记录" },
    { "history_loading_more", "正在加载更多照片…" },
    { "history_all_loaded", "已加载全部 %d 张照片" },

    // errors
    { "error_unknown", "未知错误" },

    // actions
    { "action_reveal_finder", "在文件管理器中显示" },
    { "action_quicklook", "快速预览（空格键）" },
    { "action_file_offline", "文件离线" },
    { "action_view_error", "查看错误详情" },
    { "action_switch_language", "切换语言" },
    { "action_edr_compare", "HDR 分屏对比" },
    { "action_airdrop", "通过电子邮件发送" },
    { "action_share_sheet", "分享…" },
    { "action_inspector", "查看元数据检查器…" },

    // settings window
    { "settings_title", "偏好设置" },
    { "settings_tab_perf", "性能" },
    { "settings_tab_paths", "路径" },
    { "settings_tab_safety", "安全与诊断" },
    { "settings_tab_styles", "风格预设" },
    { "settings_workers_label", "并发处理线程数" },
    { "settings_workers_auto", "自动（自适应）" },
    { "settings_workers_1", "1 个线程（节能）" },
    { "settings_workers_2", "2 个线程（均衡）" },
    { "settings_workers_3", "3 个线程（快速）" },
    { "settings_workers_4", "4 个线程（高性能）" },
    { "settings_workers_6", "6 个线程（全速）" },
    { "settings_workers_8", "8 个线程（极限）" },
    { "settings_workers_desc",
      "选择“自动”时，引擎会根据可用的 CPU "
      "核心数和内存自行决定并行线程数。线程越多，批处理完成得越快，但占用的内存也越多。" },
    { "settings_throttle_label", "动态内存压力限速" },
    { "settings_throttle_desc",
      "当系统内存不足时自动放慢引擎速度，让长时间的批处理保持稳定，避免频繁使用交换空间。" },
    { "settings_probe_title", "实时硬件与内存检测" },
    { "settings_canary_label", "外部存储断开保护" },
    { "settings_canary_desc",
      "导出过程中，如果目标驱动器断开连接或可用空间不足，将安全地停止批处理。" },
    { "settings_masks_label", "导出调试蒙版与增益图" },
    { "settings_sound_label", "完成通知提示音" },
    { "settings_sound_desc", "批处理完成时，随通知播放提示音。" },
    { "settings_btn_open_logs", "在文件管理器中显示日志" },
    { "settings_btn_open_db", "在文件管理器中显示状态数据库" },
    { "settings_core_hardened",
      "强化内核：引擎在独立进程中运行，每张处理完成的照片都会记录到状态数据库中。" },
    { "settings_styles_desc",
      "选择适合您拍摄题材的 Ultra HDR 渲染风格。所选风格将应用于之后的所有批处理。" },
    { "settings_diagnostics_title", "系统诊断与日志" },
    { "settings_probe_refresh_help", "刷新硬件与内存读数" },
    { "settings_probe_ram", "物理内存" },
    { "settings_probe_arch", "架构" },
    { "settings_probe_pressure", "内存压力" },
    { "settings_default_source_dir", "默认源照片文件夹" },
    { "settings_default_dest_dir", "默认 Ultra HDR 输出文件夹" },
    { "settings_tab_updates", "更新" },
    { "settings_updates_title", "软件更新" },
    { "settings_auto_check", "自动检查更新" },
    { "settings_auto_check_desc", "Orvanta 每天检查一次新版本，有可用更新时会通知您。" },
    { "settings_manual_check", "手动检查" },
    { "settings_manual_check_desc", "立即检查 Orvanta 是否有新版本。" },
    { "settings_tab_about", "关于与法律信息" },
    { "settings_about_tagline",
      "将您的 RAW+JPG 照片组转换为光彩夺目的 Ultra HDR 照片，适配各类 HDR 显示器。" },
    { "settings_about_engine_badge", "由 Orvanta Ultra HDR 引擎驱动" },
    { "settings_about_ack_title", "致谢" },
    { "settings_about_ack_desc", "Orvanta 基于以下开源项目构建，衷心感谢这些项目的作者与社区。" },
    // settings window: naming template warnings and the updates page
    { "export_warning_forbidden_chars", "文件名中不允许使用：%@" },
    { "export_warning_unknown_placeholders", "未知的占位符，将按原样写入：%@" },
    { "settings_updates_unavailable", "此版本的 Orvanta 未配置更新检查。" },

    // style presets
    { "style_profile_title", "风格预设" },

    // style profiles
    { "profile_default_title", "默认（忠实）" },
    { "profile_default_desc", "忠实的高光过渡与均衡的对比度，呈现自然的动态范围" },
    { "profile_portrait_title", "柔和人像" },
    { "profile_portrait_desc", "在强光下呈现柔和的镜面高光过渡与通透自然的肤色" },
    { "profile_landscape_title", "鲜明风光" },
    { "profile_landscape_desc", "增强微对比度与高光光彩，让画面鲜艳而富有冲击力" },
    { "profile_cinematic_title", "电影胶片" },
    { "profile_cinematic_desc", "温暖的胶片色调曲线，暗部细节丰富，高光压缩柔和" },
    { "profile_custom_title", "自定义微调" },
    { "profile_custom_desc", "微调中间调、高光压缩、色度扩展与肤色保护" },

    // custom fine-tuning
    { "custom_sliders_title", "微调参数" },
    { "custom_reset_defaults", "恢复默认值" },

    // sliders
    { "slider_mid_target", "中间调基准亮度" },
    { "slider_power_mid", "中间调对比度" },
    { "slider_power_hi", "高光过渡平滑度" },
    { "slider_chroma_boost", "镜面高光饱和度" },
    { "slider_skin_damp", "AI 自然肤色保护" },
    { "slider_max", "最大" },

    // drag and drop
    { "drop_hint_source", "松开以设为源照片文件夹" },
    { "drop_overlay_title", "将照片或文件夹拖放到此处" },
    { "drop_overlay_subtitle", "拖放 RAW/JPG 文件夹或所选照片文件即可加载" },
    { "drop_success_folder", "已加载源文件夹：%@" },
    { "drop_success_photos", "已加载 %d 张照片：%@" },

    // filters
    { "filter_all", "全部" },
    { "filter_success", "成功" },
    { "filter_failed", "失败" },
    { "filter_tooltip", "按状态筛选" },
    { "filter_no_match", "没有符合当前筛选条件的照片" },
    { "filter_rating_all", "全部评级" },
    { "filter_rating_1", "1 星及以上" },
    { "filter_rating_2", "2 星及以上" },
    { "filter_rating_3", "3 星及以上" },
    { "filter_rating_4", "4 星及以上" },
    { "filter_rating_5", "仅 5 星" },

    // sorting
    { "sort_date", "日期" },
    { "sort_peak_stops", "峰值增益" },
    { "sort_faces", "人脸" },
    { "sort_duration", "耗时" },
    { "sort_name", "名称" },
    { "sort_tooltip", "按属性排序" },
    { "sort_asc", "升序（从小到大）" },
    { "sort_desc", "降序（从大到小）" },

    // compare window
    { "edr_sdr_banner_title", "⚠️ 当前显示器为 SDR（%@）" },
    { "edr_sdr_banner_desc",
      "硬件峰值亮度约为 350 nits，无法实际呈现 Ultra HDR 1600 nits 的高光。已启用防剪切保护。请在 "
      "HDR 显示器上查看，以获得完整的光彩效果。" },
    { "edr_sdr_screen_notice", "SDR 屏幕：此处无法以全亮度显示 Ultra HDR 高光。" },
    { "edr_window_title", "HDR 分屏对比" },
    { "edr_badge_xdr", "Liquid Retina XDR: 1600 nits (EDR 4.0x)" },
    { "edr_badge_sdr", "标准显示器：500 nits（SDR 1.0x）" },
    { "edr_label_sdr", "相机原片（SDR）" },
    { "edr_label_hdr", "Ultra HDR（峰值 1600 nits）" },
    { "edr_drag_hint", "拖动滑块进行对比 • 按空格键切换" },
    { "edr_mode_split", "分屏视图" },
    { "edr_mode_hdr", "仅 Ultra HDR" },
    { "edr_mode_sdr", "仅 SDR" },
    { "edr_nav_prev", "上一张（←）" },
    { "edr_nav_next", "下一张（→）" },
    { "edr_zoom_hint", "双指捏合或 Ctrl+滚轮缩放 • 双击 100% • 空格键切换 • Tab 键进入纯净视图" },
    // compare window: viewer tools
    { "edr_no_gl", "HDR 查看器需要 OpenGL，但此显示器上不可用。" },
    { "edr_loading", "正在加载照片…" },
    { "edr_sdr_from_hdr", "缺少相机 JPEG：左侧显示的是 Ultra HDR 文件自带的 SDR 图像。" },
    { "edr_zebra_highlights", "高光斑马纹起点" },
    { "edr_zebra_shadows", "阴影斑马纹低于" },
    { "edr_simulate_headroom", "模拟余量" },
    { "edr_pixel_readout", "像素 %d, %d   R %.3f  G %.3f  B %.3f   (%.2f 档)" },
    { "edr_share_copy_path", "复制文件路径" },
    { "edr_share_open", "在默认查看器中打开" },

    // SDR render mode
    { "sdr_mode_label", "SDR 渲染模式：" },
    { "sdr_mode_natural_hint", "标准：显示干净的 SDR 基础图像，无生硬剪切" },
    { "sdr_mode_filmic_hint", "胶片式高光过渡压缩：在 SDR 中呈现高光处的云层与纹理" },
    { "sdr_mode_natural", "自然 SDR" },
    { "sdr_mode_filmic", "胶片式过渡" },

    // memory pressure
    { "pressure_normal", "🟢 正常" },
    { "pressure_warning", "偏高（限速）" },
    { "pressure_critical", "🔴 严重" },

    // profile summary badges
    { "badge_mid", "中间调" },
    { "badge_power_mid", "中调强度" },
    { "badge_power_hi", "高光强度" },
    { "badge_chroma", "色度" },
    { "badge_skin_damp", "肤色抑制" },
    { "badge_scale", "倍率" },
    { "badge_mode", "模式" },
    { "badge_sliders", "滑块" },
    { "badge_custom", "自定义" },
    { "badge_finetuning", "微调" },

    // menus
    { "menu_settings", "偏好设置…" },
    { "menu_folders", "文件夹" },
    { "menu_open_source", "选择源照片文件夹…" },
    { "menu_open_dest", "选择目标文件夹…" },
    { "menu_pipeline", "处理" },
    { "menu_start_pipeline", "开始批量处理" },
    { "menu_stop_pipeline", "停止处理" },
    { "menu_refresh_history", "刷新历史记录" },
    { "menu_check_updates", "检查更新…" },

    // console messages
    { "log_volume_insufficient", "目标存储卷空间不足或不可用：[%@]" },
    { "log_dry_run_activated",
      "Modo de simulación activado: escaneo rápido sin escritura en disco." },
    { "log_engine_start_failed", "处理引擎启动失败：%@" },

    // tags
    { "tag_rating", "评级" },

    // labels
    { "lbl_rating_filter", "评级筛选：" },
    { "lbl_rating_filter_help", "仅处理评级不低于所选星级的照片" },

    // recipes
    { "recipes_title", "我的预设配方" },
    { "recipes_section_my", "我的配方" },
    { "recipes_save_as", "保存为配方…" },
    { "recipes_save_dialog_title", "保存为预设配方" },
    { "recipes_name_placeholder", "配方名称（例如：日落逆光）" },
    { "recipes_empty_hint",
      "还没有自定义配方。调整上方的滑块，然后点击“保存为配方”，即可保存您的独特风格。" },
    { "recipes_apply", "应用" },
    { "recipes_applied", "已加载配方：%@" },
    { "recipes_rename", "重命名" },
    { "recipes_rename_dialog_title", "重命名配方" },
    { "recipes_delete", "删除" },
    { "recipes_export_all", "导出配方…" },
    { "recipes_import", "导入配方…" },
    { "recipes_imported_success", "成功导入 %d 个配方！" },
    { "recipes_btn_save", "保存" },
    { "recipes_btn_cancel", "取消" },

    // export naming
    { "export_naming_title", "导出命名与子文件夹分类" },
    { "export_naming_template", "命名模板" },
    { "export_template_help", "可用占位符：{original}、{profile}、{date}、{camera}、{rating}" },
    { "export_preview_label", "实时预览" },
    { "export_subfolder_rule", "子文件夹分类" },

    // subfolder rules
    { "subfolder_rule_none", "无（直接存放在目标文件夹中）" },
    { "subfolder_rule_by_date", "按拍摄日期（YYYY-MM-DD/）" },
    { "subfolder_rule_by_rating", "按星级（5_Stars/、4_Stars/）" },
    { "subfolder_rule_by_profile", "按风格预设（Portrait/、Landscape/）" },

    // inspector
    { "inspector_title", "元数据与 HDR 检查器" },
    { "inspector_sec_camera", "相机与镜头" },
    { "inspector_sec_exposure", "曝光设置" },
    { "inspector_aperture", "光圈" },
    { "inspector_shutter", "快门速度" },
    { "inspector_iso", "ISO" },
    { "inspector_focal_len", "焦距" },
    { "inspector_exp_bias", "曝光补偿" },
    { "inspector_sec_hdr", "Ultra HDR 物理参数与增益图" },
    { "inspector_peak_stops", "峰值动态余量" },
    { "inspector_gainmap_spec", "增益图标准" },
    { "inspector_faces_detected", "检测到的人脸" },
    { "inspector_faces_count", "%d 张人脸（肤色增益抑制 40%）" },
    { "inspector_faces_none", "无（完整动态增强）" },
    { "inspector_bayer_clip", "拜耳传感器剪切率" },
    { "inspector_engine_version", "算法引擎" },
    { "inspector_sec_file_display", "文件与显示能力" },
    { "inspector_resolution", "分辨率" },
    { "inspector_filesize", "文件大小" },
    { "inspector_display_cap", "硬件显示余量" },

    // history columns
    { "col_peak_stops", "峰值增益" },
    { "col_exposure", "曝光" },
    { "col_camera_lens", "相机 / 镜头" },
    { "col_faces", "人脸" },
    { "col_bayer_clip", "传感器剪切" },
    { "col_duration", "耗时" },
    { "col_file_size", "文件大小" },
    { "col_date", "日期" },
    { "col_status", "状态" },
    { "col_actions", "操作" },

    // selection
    { "batch_selected_count", "已选择 %d 项" },

    // histogram
    { "hist_title", "HDR 动态范围直方图" },
    { "hist_sdr", "SDR（0-100 nits）" },
    { "hist_edr", "XDR（100-1600 nits）" },
    { "hist_peak", "峰值亮度" },

    // history table, share menu and inspector (ui/history)
    { "history_delete_confirm_title", "要从历史记录中删除 %d 条记录吗？" },
    { "history_delete_confirm_desc", "照片文件仍保留在磁盘上，只会删除它们的历史记录条目。" },
    { "share_copy_image", "复制图像" },
    { "share_copy_path", "复制文件路径" },
    { "share_open_default", "用默认应用程序打开" },
    { "inspector_gainmap_none", "此文件不含增益图" },
    { "inspector_gainmap_detail", "%@ · %.2f 至 %.2f 档 · %d 个通道" },
    { "inspector_display_hdr", "HDR 显示器（%.1fx）" },
    { "inspector_display_sdr", "标准 SDR (1.0x)" },

    // donation sheet
    { "menu_sponsor", "支持并赞助 Orvanta…" },
    { "donate_title", "感谢您使用 Orvanta" },
    { "donate_desc",
      "Orvanta 由一位独立开发者由一位和您一样珍视照片的独立开发者精心打造。每一笔捐赠都能帮助 "
      "Orvanta 保持免费并持续开发。感谢您的支持！" },
    { "donate_btn_open", "打开捐赠页面" },
    { "donate_btn_later", "以后再说" },

    // update checks (app/UpdateAnnouncer, settings updates page)
    { "update_available_title", "Orvanta %@ 现已推出" },
    { "update_available_body", "新版 Orvanta 已可下载。当前版本为 %@。" },
    { "update_open_page", "打开下载页面" },
    { "update_later", "稍后" },
    { "update_up_to_date_title", "已是最新版本" },
    { "update_up_to_date_body", "Orvanta %@ 是目前的最新版本。" },
    { "update_failed_title", "检查更新失败" },
    { "update_failed_network", "无法连接到更新服务器。请检查网络连接，稍后再试。" },
    { "update_failed_feed", "无法读取服务器返回的更新信息。" },
    { "update_failed_signature", "更新信息没有 Orvanta 开发者的有效签名，因此未被采用。" },
    { "update_packaged_title", "更新由软件包管理器提供" },
    { "update_packaged_body",
      "此 Orvanta 作为系统软件包安装，新版本由软件中心或软件包管理器（如 apt）安装。" },
    { "update_packaged_note", "此安装由系统的软件包管理器负责更新。" },
    // Label and value in one text, the colon as the language writes it
    { "metric_elapsed_value", "耗时：%@" },
    { "hist_peak_value", "峰值亮度：%@" },
    // never lose work: quit question, missing engine
    { "quit_running_title", "批处理仍在运行" },
    { "quit_running_message",
      "引擎仍在转换照片。停止时，它会先完成正在处理的照片；已完成的内容不会丢失。" },
    { "quit_stop_and_quit", "停止批处理并退出" },
    { "quit_when_done", "批处理结束后退出" },
    { "quit_keep_running", "继续运行" },
    { "status_stopping_to_quit", "正在停止批处理，随后退出..." },
    { "env_engine_missing", "未找到引擎：%@" },
    { "env_engine_not_executable", "引擎不可执行：%@" },
    { "env_missing_libraries", "缺少的库：%@" },
    { "log_engine_missing_start",
      "无法开始：%@ 处没有引擎。请安装 orvanta_engine，或将 ORVANTA_BIN 设置为其路径。" },
    // recipe messages, engine version, singular forms of counts
    { "recipes_exported_success", "配方导出成功！" },
    { "recipes_export_failed", "配方导出失败：%@" },
    { "recipes_import_failed", "配方导入失败：%@" },
    { "inspector_peak_value", "+%.2f 档（%.1fx）" },
    { "history_row_success", "成功" },
    { "history_row_failed", "失败" },
    { "inspector_engine_version_unknown", "不可用（未找到引擎）" },
    // History database locked by another program
    { "history_busy", "历史记录正忙，正在重试…" },
    // Batch: pause, nothing to do, failure list
    { "status_nothing_to_do", "无需处理：未找到匹配的 RAW+JPG 配对" },
    { "status_paused", "已暂停于 [%d / %d]" },
    { "status_resumed", "已继续于 [%d / %d]" },
    { "btn_pause", "暂停" },
    { "btn_resume", "继续" },
    { "menu_pause_pipeline", "暂停或继续批处理" },
    { "card_paused", "已暂停" },
    { "card_failed_count", "%d 张失败" },
    { "btn_show_failures", "查看失败项" },
    { "failures_title", "失败的照片" },
    { "failures_summary", "上一批次未交付：%d" },
    { "failures_column_photo", "照片" },
    { "failures_column_reason", "原因" },
    { "failures_no_reason", "引擎未给出原因" },
    { "failures_reveal", "在文件管理器中显示" },
    { "failures_retry", "重试失败项" },
    { "failures_close", "关闭" },
    // Name of a destination that is not a volume of its own
    { "volume_local_disk", "本地磁盘" },
    // Watching a folder after the batch
    { "opt_watch_folder", "持续监视文件夹" },
    { "opt_watch_folder_help",
      "批处理结束后，每当有新的 RAW+JPG "
      "照片对到达就立即转换（适用于联机拍摄），直到点击“停止处理”" },
    { "card_watching", "正在监视 %@" },
    { "card_watch_lost_title", "正在等待文件夹" },
    { "card_watch_count", "自开始以来已转换 %d 张照片" },
    { "card_watch_last", "最后一张照片：%@" },
    { "card_watch_lost", "监视的文件夹已不存在（已移动或删除）。正在等待它恢复…" },
    { "card_watch_lost_unmounted", "存放监视文件夹的磁盘已被移除。正在等待它恢复…" },
    { "status_watching", "正在监视 %@ 中的新照片" },
    // What made a photo fail, as the failure list says it
    { "failure_jpg_unreadable", "无法读取相机 JPG" },
    { "failure_raw_unreadable", "无法读取 RAW 文件" },
    { "failure_colour_unmatched", "JPG 与 RAW 的颜色不一致，因此未生成 HDR 版本" },
    { "failure_encode_failed", "无法生成 Ultra HDR 文件" },
    { "failure_write_failed", "无法将结果保存到目标文件夹" },
    { "failure_destination_gone", "批处理期间目标文件夹已消失" },
};
} // namespace

std::span<const StringEntry> zhHans()
{
    return kEntries;
}

} // namespace orvanta::strings
