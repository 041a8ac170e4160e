// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Spanish texts.
#include "i18n/StringTables.h"

namespace orvanta::strings {
namespace {
constexpr StringEntry kEntries[] = {
    // app
    { "app_title", "Orvanta" },
    { "app_subtitle", "Automatización profesional de fotografía Ultra HDR" },

    // status line
    { "status_env_ready", "Entorno listo" },
    { "status_env_missing", "Faltan dependencias" },
    { "status_ready", "Listo" },
    { "status_processing", "Procesando..." },
    { "status_failed", "Fallido" },
    { "status_scanning", "Analizando las fotos de origen..." },
    { "status_scan_done", "Análisis completado: %d pendientes" },
    { "status_processing_item", "Procesando [%d/%d] %@..." },
    { "status_item_completed", "Completado [%d/%d] %@ (+%.2f pasos)" },
    { "status_item_failed", "Error [%d/%d] %@" },
    { "status_batch_completed", "Lote completado (correctas: %d, fallidas: %d)" },
    { "status_all_up_to_date",
      "Todas las fotos ya están actualizadas (%d omitidas, ningún archivo pendiente)" },
    { "status_cancelled", "Cancelado por el usuario" },
    { "status_cancelling", "Deteniendo..." },
    { "status_dryrun_completed", "Simulación completada: %d en total, %d pendientes, %d omitidas" },
    { "status_abnormal", "Finalizó de forma anómala (código de salida %d)" },

    // tabs
    { "tab_live_run", "Lote en curso" },
    { "tab_history", "Historial y cuarentena" },

    // footer
    { "footer_storage_safe", "%@ montado y en buen estado (%.1f GB libres)" },

    // notifications
    { "notif_batch_completed_title", "Procesamiento por lotes completado" },
    { "notif_action_open_folder", "Mostrar en el gestor de archivos" },
    { "notif_batch_success_body", "Se entregaron correctamente %d fotos Ultra HDR en %.1f s." },
    { "notif_batch_failed_body", "%d correctas, %d con errores." },

    // folder bar
    { "folder_source_title", "Carpeta de origen" },
    { "folder_source_placeholder", "Seleccionar la carpeta de origen RAW+JPG" },
    { "folder_dest_title", "Carpeta de entrega" },
    { "folder_dest_placeholder", "Seleccionar la carpeta de destino Ultra HDR" },

    // buttons
    { "btn_browse", "Examinar..." },
    { "btn_start_batch", "Iniciar lote" },
    { "btn_stop", "Detener procesamiento" },
    { "btn_refresh", "Actualizar" },
    { "btn_settings", "Preferencias (Ctrl+,)" },
    { "btn_done", "Listo" },
    { "btn_custom_columns", "Personalizar columnas" },
    { "btn_select_all", "Seleccionar todo" },
    { "btn_deselect_all", "Deseleccionar todo" },
    { "btn_batch_delete", "Eliminar selección" },
    { "btn_batch_reprocess", "Reprocesar selección" },
    { "btn_toggle_console", "Registro de consola" },
    { "btn_clear_console", "Borrar consola" },
    { "btn_xdr_compare_pill", "Comparar HDR" },
    { "btn_zebra", "Cebra (Z)" },
    { "btn_histogram", "Histograma (H)" },
    { "btn_check_now", "Comprobar ahora" },
    { "btn_close", "Cerrar" },
    { "btn_ok", "Aceptar" },

    // dialogs
    { "dialog_select_folder", "Seleccionar carpeta" },
    { "dialog_error_title", "Detalles del error de cuarentena" },
    { "dialog_ok", "Aceptar" },
    { "dialog_file_missing_title", "Foto no encontrada en el disco" },
    { "dialog_file_missing_desc",
      "El archivo [%@] se ha movido, renombrado o eliminado de su ubicación original." },

    // batch options
    { "opt_force_reprocess", "Forzar reprocesado" },
    { "opt_force_reprocess_help",
      "Ignorar el historial de la base de datos y regenerar todas las fotos" },
    { "opt_backlit_fill", "Luz de relleno IA a contraluz" },
    { "opt_backlit_fill_help",
      "Aclara suavemente los rostros y sujetos en sombra en escenas a contraluz, sin alterar el "
      "fondo luminoso" },
    { "opt_dry_run", "Modo de simulación" },
    { "opt_dry_run_help",
      "Analiza la carpeta de origen e indica qué se procesaría, sin escribir ningún archivo" },
    { "opt_single_stem", "Foto única:" },
    { "opt_single_stem_placeholder", "p. ej., DSC04223 (opcional)" },

    // progress card
    { "card_processing", "Procesando lote" },
    { "card_idle", "Inactivo" },
    { "card_pairs_found", "%d pares encontrados" },
    { "card_progress_ratio", "[%d / %d]  %d%%" },
    // main window: time left in the running batch, quitting
    { "card_time_left", "quedan %@" },
    { "menu_quit", "Salir de Orvanta" },

    // progress metrics
    { "metric_faces", "Rostros: %d" },
    { "metric_peak_gain", "Ganancia máxima: +%.2f pasos" },
    { "metric_bayer_clip", "Recorte del sensor: %.3f %%" },
    { "metric_duration", "Tiempo transcurrido: %.1f s" },
    { "metric_elapsed", "Tiempo transcurrido" },
    { "metric_throughput_speed", "%.1f s / foto" },

    // console
    { "console_title", "Consola en vivo" },
    { "console_auto_scroll", "Desplazamiento automático" },
    { "console_clear", "Borrar" },
    { "console_waiting", "Esperando la salida del motor..." },
    { "console_copy_all", "Copiar todo" },
    { "console_copied", "¡Copiado!" },

    // dashboard figures
    { "kpi_total_processed", "Total procesadas" },
    { "kpi_success_delivered", "Correctas / entregadas" },
    { "kpi_quarantine_failed", "Cuarentena / fallidas" },
    { "kpi_avg_duration", "Duración media" },

    // units
    { "unit_photos", "Fotos" },
    { "unit_ultra_hdr", "Ultra HDR" },
    { "unit_attention_needed", "Requieren atención" },
    { "unit_sec_per_photo", "s / foto" },
    { "unit_faces", "%d rostros" },

    // history
    { "history_search_placeholder", "Buscar nombre de foto (p. ej., DSC04223)..." },
    { "history_empty", "No hay historial de procesamiento" },
    { "history_loading_more", "Cargando más fotos..." },
    { "history_all_loaded", "Se cargaron las %d fotos" },

    // errors
    { "error_unknown", "Error desconocido" },

    // actions
    { "action_reveal_finder", "Mostrar en el gestor de archivos" },
    { "action_quicklook", "Vista previa rápida (Espacio)" },
    { "action_file_offline", "Archivo sin conexión" },
    { "action_view_error", "Ver detalles del error" },
    { "action_switch_language", "Cambiar idioma" },
    { "action_edr_compare", "Comparación HDR dividida" },
    { "action_airdrop", "Enviar por correo electrónico" },
    { "action_share_sheet", "Compartir…" },
    { "action_inspector", "Ver inspector de metadatos..." },

    // settings window
    { "settings_title", "Preferencias" },
    { "settings_tab_perf", "Rendimiento" },
    { "settings_tab_paths", "Rutas" },
    { "settings_tab_safety", "Seguridad y diagnóstico" },
    { "settings_tab_styles", "Estilos predefinidos" },
    { "settings_workers_label", "Procesos de trabajo simultáneos" },
    { "settings_workers_auto", "Automático (adaptable)" },
    { "settings_workers_1", "1 proceso (ahorro)" },
    { "settings_workers_2", "2 procesos (equilibrado)" },
    { "settings_workers_3", "3 procesos (rápido)" },
    { "settings_workers_4", "4 procesos (alto)" },
    { "settings_workers_6", "6 procesos (ráfaga)" },
    { "settings_workers_8", "8 procesos (máximo)" },
    { "settings_workers_desc",
      "En modo Automático, el motor elige el número de procesos paralelos según los núcleos de CPU "
      "y la memoria disponibles. Con más procesos, un lote termina antes, pero se usa más "
      "memoria." },
    { "settings_throttle_label", "Limitación dinámica por presión de memoria" },
    { "settings_throttle_desc",
      "Ralentiza el motor cuando el sistema se queda sin memoria, para que los lotes largos sigan "
      "siendo estables en lugar de recurrir al archivo de intercambio." },
    { "settings_probe_title", "Monitor de hardware y memoria en vivo" },
    { "settings_canary_label", "Protección ante la desconexión del almacenamiento externo" },
    { "settings_canary_desc",
      "Detiene el lote de forma segura si la unidad de destino se desconecta o se queda sin "
      "espacio libre durante la exportación." },
    { "settings_masks_label", "Exportar máscaras de depuración y mapas de ganancia" },
    { "settings_sound_label", "Sonido de notificación al finalizar" },
    { "settings_sound_desc", "Reproducir un sonido con la notificación cuando termine un lote." },
    { "settings_btn_open_logs", "Mostrar registros en el gestor de archivos" },
    { "settings_btn_open_db", "Mostrar BD de estado en el gestor de archivos" },
    { "settings_core_hardened",
      "Núcleo reforzado: el motor se ejecuta en su propio proceso y cada foto terminada queda "
      "registrada en la base de datos de estado." },
    { "settings_styles_desc",
      "Elige un perfil de renderizado Ultra HDR adaptado a tu género fotográfico. El perfil "
      "seleccionado se aplicará a todos los lotes posteriores." },
    { "settings_diagnostics_title", "Diagnóstico del sistema y registros" },
    { "settings_probe_refresh_help", "Actualizar las lecturas de hardware y memoria" },
    { "settings_probe_ram", "RAM física" },
    { "settings_probe_arch", "Arquitectura" },
    { "settings_probe_pressure", "Presión de memoria" },
    { "settings_default_source_dir", "Carpeta de fotos de origen predeterminada" },
    { "settings_default_dest_dir", "Carpeta de salida Ultra HDR predeterminada" },
    { "settings_tab_updates", "Actualizaciones" },
    { "settings_updates_title", "Actualizaciones de software" },
    { "settings_auto_check", "Buscar actualizaciones automáticamente" },
    { "settings_auto_check_desc",
      "Orvanta busca una nueva versión una vez al día y te avisa cuando hay una disponible." },
    { "settings_manual_check", "Comprobar manualmente" },
    { "settings_manual_check_desc", "Buscar ahora una nueva versión de Orvanta." },
    { "settings_tab_about", "Información y avisos legales" },
    { "settings_about_tagline",
      "Convierte tus pares RAW+JPG en brillantes fotos Ultra HDR, listas para cualquier pantalla "
      "HDR." },
    { "settings_about_engine_badge", "Con la tecnología del motor Orvanta Ultra HDR" },
    { "settings_about_ack_title", "Agradecimientos" },
    { "settings_about_ack_desc",
      "Orvanta se basa en estos proyectos de código abierto. Muchas gracias a sus autores y "
      "comunidades." },
    // settings window: naming template warnings and the updates page
    { "export_warning_forbidden_chars", "No permitido en nombres de archivo: %@" },
    { "export_warning_unknown_placeholders", "Marcadores desconocidos, se escriben tal cual: %@" },
    { "settings_updates_unavailable",
      "La búsqueda de actualizaciones no está configurada en esta compilación de Orvanta." },

    // style presets
    { "style_profile_title", "Estilo predefinido" },

    // style profiles
    { "profile_default_title", "Predeterminado (fiel)" },
    { "profile_default_desc",
      "Transición fiel de las altas luces y contraste equilibrado con un rango dinámico natural" },
    { "profile_portrait_title", "Retrato suave" },
    { "profile_portrait_desc",
      "Transiciones especulares suaves y tonos de piel luminosos y naturales con luz dura" },
    { "profile_landscape_title", "Paisaje intenso" },
    { "profile_landscape_desc",
      "Microcontraste realzado y brillo especular para escenas vivas e intensas" },
    { "profile_cinematic_title", "Cinematográfico" },
    { "profile_cinematic_desc",
      "Curva tonal cálida de aspecto fílmico, sombras ricas en detalle y compresión suave de las "
      "altas luces" },
    { "profile_custom_title", "Ajuste fino personalizado" },
    { "profile_custom_desc",
      "Ajusta con precisión los medios tonos, la compresión de altas luces, la expansión de croma "
      "y la protección de la piel" },

    // custom fine-tuning
    { "custom_sliders_title", "Parámetros de ajuste fino" },
    { "custom_reset_defaults", "Restablecer valores" },

    // sliders
    { "slider_mid_target", "Nivel base de medios tonos" },
    { "slider_power_mid", "Contraste de medios tonos" },
    { "slider_power_hi", "Suavidad de transición de altas luces" },
    { "slider_chroma_boost", "Saturación de color especular" },
    { "slider_skin_damp", "Protección natural de tonos de piel (IA)" },
    { "slider_max", "Máx." },

    // drag and drop
    { "drop_hint_source", "Suelta para usarla como carpeta de fotos de origen" },
    { "drop_overlay_title", "Suelta aquí fotos o carpetas" },
    { "drop_overlay_subtitle",
      "Suelta carpetas RAW/JPG o archivos de foto seleccionados para cargarlos" },
    { "drop_success_folder", "Carpeta de origen cargada: %@" },
    { "drop_success_photos", "%d fotos cargadas: %@" },

    // filters
    { "filter_all", "Todas" },
    { "filter_success", "Correctas" },
    { "filter_failed", "Fallidas" },
    { "filter_tooltip", "Filtrar por estado" },
    { "filter_no_match", "Ninguna foto coincide con el filtro actual" },
    { "filter_rating_all", "Todas las valoraciones" },
    { "filter_rating_1", "1 estrella o más" },
    { "filter_rating_2", "2 estrellas o más" },
    { "filter_rating_3", "3 estrellas o más" },
    { "filter_rating_4", "4 estrellas o más" },
    { "filter_rating_5", "Solo 5 estrellas" },

    // sorting
    { "sort_date", "Fecha" },
    { "sort_peak_stops", "Ganancia máxima" },
    { "sort_faces", "Rostros" },
    { "sort_duration", "Duración" },
    { "sort_name", "Nombre" },
    { "sort_tooltip", "Ordenar por atributo" },
    { "sort_asc", "Ascendente (de menor a mayor)" },
    { "sort_desc", "Descendente (de mayor a menor)" },

    // compare window
    { "edr_sdr_banner_title", "⚠️ La pantalla actual es SDR (%@)" },
    { "edr_sdr_banner_desc",
      "La luminancia máxima de esta pantalla ronda los 350 nits, por lo que no puede emitir "
      "físicamente las altas luces Ultra HDR de 1600 nits. Protección contra recorte activa. Usa "
      "una pantalla HDR para apreciar todo su brillo." },
    { "edr_sdr_screen_notice",
      "Pantalla SDR: aquí no se pueden mostrar las altas luces Ultra HDR con todo su brillo." },
    { "edr_window_title", "Comparación HDR dividida" },
    { "edr_badge_xdr", "Liquid Retina XDR: 1600 nits (EDR 4.0x)" },
    { "edr_badge_sdr", "Pantalla estándar: 500 nits (SDR 1.0x)" },
    { "edr_label_sdr", "Original de la cámara (SDR)" },
    { "edr_label_hdr", "Ultra HDR (pico de 1600 nits)" },
    { "edr_drag_hint", "Arrastra el control para comparar • Pulsa Espacio para alternar" },
    { "edr_mode_split", "Vista dividida" },
    { "edr_mode_hdr", "Solo Ultra HDR" },
    { "edr_mode_sdr", "Solo SDR" },
    { "edr_nav_prev", "Anterior (←)" },
    { "edr_nav_next", "Siguiente (→)" },
    { "edr_zoom_hint",
      "Pellizca o usa Ctrl+rueda para ampliar • Doble clic: 100 % • Espacio para alternar • Tab "
      "para vista limpia" },
    // compare window: viewer tools
    { "edr_no_gl", "El visor HDR necesita OpenGL, que no está disponible en esta pantalla." },
    { "edr_loading", "Cargando foto…" },
    { "edr_sdr_from_hdr",
      "Falta el JPEG de la cámara: el lado izquierdo muestra la imagen SDR propia del archivo "
      "Ultra HDR." },
    { "edr_zebra_highlights", "Cebra de altas luces desde" },
    { "edr_zebra_shadows", "Cebra de sombras por debajo de" },
    { "edr_simulate_headroom", "Margen dinámico simulado" },
    { "edr_pixel_readout", "Píxel %d, %d   R %.3f  G %.3f  B %.3f   (%.2f pasos)" },
    { "edr_share_copy_path", "Copiar ruta del archivo" },
    { "edr_share_open", "Abrir en el visor predeterminado" },

    // SDR render mode
    { "sdr_mode_label", "Modo de renderizado SDR:" },
    { "sdr_mode_natural_hint",
      "Estándar: muestra la imagen SDR base limpia, sin recortes bruscos" },
    { "sdr_mode_filmic_hint",
      "Compresión fílmica de altas luces: recupera las nubes y la textura de las altas luces en "
      "SDR" },
    { "sdr_mode_natural", "SDR natural" },
    { "sdr_mode_filmic", "Transición fílmica" },

    // memory pressure
    { "pressure_normal", "🟢 Normal" },
    { "pressure_warning", "Elevada (limitando)" },
    { "pressure_critical", "🔴 Crítica" },

    // profile summary badges
    { "badge_mid", "Medios" },
    { "badge_power_mid", "Curva medios" },
    { "badge_power_hi", "Curva altas luces" },
    { "badge_chroma", "Croma" },
    { "badge_skin_damp", "Atenuación piel" },
    { "badge_scale", "Escala" },
    { "badge_mode", "Modo" },
    { "badge_sliders", "Controles" },
    { "badge_custom", "Personalizado" },
    { "badge_finetuning", "Ajuste fino" },

    // menus
    { "menu_settings", "Preferencias..." },
    { "menu_folders", "Carpetas" },
    { "menu_open_source", "Seleccionar carpeta de fotos de origen..." },
    { "menu_open_dest", "Seleccionar carpeta de destino..." },
    { "menu_pipeline", "Procesamiento" },
    { "menu_start_pipeline", "Iniciar procesamiento por lotes" },
    { "menu_stop_pipeline", "Detener procesamiento" },
    { "menu_refresh_history", "Actualizar historial" },
    { "menu_check_updates", "Buscar actualizaciones..." },

    // console messages
    { "log_volume_insufficient",
      "El volumen de almacenamiento de destino no tiene espacio suficiente o no está disponible: "
      "[%@]" },
    { "log_dry_run_activated",
      "Modo de simulación activado: escaneo rápido sin escritura en disco." },
    { "log_engine_start_failed", "No se pudo iniciar el motor de procesamiento: %@" },

    // tags
    { "tag_rating", "Valoración" },

    // labels
    { "lbl_rating_filter", "Filtro de valoración:" },
    { "lbl_rating_filter_help",
      "Procesar solo las fotos con una valoración igual o superior al número de estrellas "
      "seleccionado" },

    // recipes
    { "recipes_title", "Mis recetas de ajustes" },
    { "recipes_section_my", "Mis recetas" },
    { "recipes_save_as", "Guardar como receta..." },
    { "recipes_save_dialog_title", "Guardar como receta de ajustes" },
    { "recipes_name_placeholder", "Nombre de la receta (p. ej., Contraluz al atardecer)" },
    { "recipes_empty_hint",
      "Aún no hay recetas personalizadas. Ajusta los controles de arriba y haz clic en «Guardar "
      "como receta» para guardar tu propio estilo." },
    { "recipes_apply", "Aplicar" },
    { "recipes_applied", "Receta cargada: %@" },
    { "recipes_rename", "Cambiar nombre" },
    { "recipes_rename_dialog_title", "Cambiar nombre de la receta" },
    { "recipes_delete", "Eliminar" },
    { "recipes_export_all", "Exportar recetas..." },
    { "recipes_import", "Importar recetas..." },
    { "recipes_imported_success", "¡Se importaron correctamente %d recetas!" },
    { "recipes_btn_save", "Guardar" },
    { "recipes_btn_cancel", "Cancelar" },

    // export naming
    { "export_naming_title", "Nombres de exportación y organización en subcarpetas" },
    { "export_naming_template", "Plantilla de nombre" },
    { "export_template_help",
      "Marcadores disponibles: {original}, {profile}, {date}, {camera}, {rating}" },
    { "export_preview_label", "Vista previa en vivo" },
    { "export_subfolder_rule", "Organización en subcarpetas" },

    // subfolder rules
    { "subfolder_rule_none", "Ninguna (todo en la carpeta de destino)" },
    { "subfolder_rule_by_date", "Por fecha de captura (AAAA-MM-DD/)" },
    { "subfolder_rule_by_rating", "Por valoración (5_Stars/, 4_Stars/)" },
    { "subfolder_rule_by_profile", "Por perfil de estilo (Portrait/, Landscape/)" },

    // inspector
    { "inspector_title", "Inspector de metadatos y HDR" },
    { "inspector_sec_camera", "Cámara y objetivo" },
    { "inspector_sec_exposure", "Ajustes de exposición" },
    { "inspector_aperture", "Apertura" },
    { "inspector_shutter", "Velocidad de obturación" },
    { "inspector_iso", "ISO" },
    { "inspector_focal_len", "Distancia focal" },
    { "inspector_exp_bias", "Compensación de exposición" },
    { "inspector_sec_hdr", "Física Ultra HDR y mapa de ganancia" },
    { "inspector_peak_stops", "Margen dinámico máximo" },
    { "inspector_gainmap_spec", "Estándar del mapa de ganancia" },
    { "inspector_faces_detected", "Rostros detectados" },
    { "inspector_faces_count", "%d rostros (atenuación de piel del 40 %)" },
    { "inspector_faces_none", "Ninguno (realce dinámico completo)" },
    { "inspector_bayer_clip", "Tasa de recorte del sensor Bayer" },
    { "inspector_engine_version", "Motor de algoritmos" },
    { "inspector_sec_file_display", "Archivo y capacidad de la pantalla" },
    { "inspector_resolution", "Resolución" },
    { "inspector_filesize", "Tamaño del archivo" },
    { "inspector_display_cap", "Margen dinámico de la pantalla" },

    // history columns
    { "col_peak_stops", "Ganancia máx." },
    { "col_exposure", "Exposición" },
    { "col_camera_lens", "Cámara / objetivo" },
    { "col_faces", "Rostros" },
    { "col_bayer_clip", "Recorte del sensor" },
    { "col_duration", "Duración" },
    { "col_file_size", "Tamaño" },
    { "col_date", "Fecha" },
    { "col_status", "Estado" },
    { "col_actions", "Acciones" },

    // selection
    { "batch_selected_count", "%d seleccionadas" },

    // histogram
    { "hist_title", "Histograma de rango dinámico HDR" },
    { "hist_sdr", "SDR (0-100 nits)" },
    { "hist_edr", "XDR (100-1600 nits)" },
    { "hist_peak", "Luminancia máxima" },

    // history table, share menu and inspector (ui/history)
    { "history_delete_confirm_title", "¿Eliminar %d registros del historial?" },
    { "history_delete_confirm_desc",
      "Los archivos de foto permanecen en el disco; solo se eliminan sus entradas del historial." },
    { "share_copy_image", "Copiar imagen" },
    { "share_copy_path", "Copiar ruta del archivo" },
    { "share_open_default", "Abrir en la aplicación predeterminada" },
    { "inspector_gainmap_none", "Este archivo no tiene mapa de ganancia" },
    { "inspector_gainmap_detail", "%@ · %.2f a %.2f pasos · %d canales" },
    { "inspector_display_hdr", "Pantalla HDR (%.1fx)" },
    { "inspector_display_sdr", "SDR estándar (1.0x)" },

    // donation sheet
    { "menu_sponsor", "Apoyar y patrocinar Orvanta..." },
    { "donate_title", "Gracias por usar Orvanta" },
    { "donate_desc",
      "Orvanta lo crea un desarrollador independiente al que le importan tus fotos tanto como a "
      "ti. Cada donación ayuda a que Orvanta siga siendo gratuito y en desarrollo activo. ¡Gracias "
      "por tu apoyo!" },
    { "donate_btn_open", "Abrir página de donación" },
    { "donate_btn_later", "Quizá más tarde" },

    // update checks (app/UpdateAnnouncer, settings updates page)
    { "update_available_title", "Orvanta %@ está disponible" },
    { "update_available_body",
      "Hay una nueva versión de Orvanta lista para descargar. Tienes la %@." },
    { "update_open_page", "Abrir página de descarga" },
    { "update_later", "Más tarde" },
    { "update_up_to_date_title", "Orvanta está actualizado" },
    { "update_up_to_date_body", "Orvanta %@ es la versión más reciente." },
    { "update_failed_title", "No se pudieron buscar actualizaciones" },
    { "update_failed_network",
      "No se pudo conectar con el servidor de actualizaciones. Comprueba tu conexión a Internet y "
      "vuelve a intentarlo más tarde." },
    { "update_failed_feed", "No se pudo leer la información de actualización del servidor." },
    { "update_failed_signature",
      "La información de actualización no lleva una firma válida de los desarrolladores de "
      "Orvanta, así que se ha descartado." },
    { "update_packaged_title", "Las actualizaciones llegan a través de tu gestor de paquetes" },
    { "update_packaged_body",
      "Esta copia de Orvanta se instaló como paquete del sistema. Tu centro de software o tu "
      "gestor de paquetes (por ejemplo, apt) instala sus nuevas versiones." },
    { "update_packaged_note",
      "Esta instalación se actualiza con el gestor de paquetes del sistema." },
    // Label and value in one text, the colon as the language writes it
    { "metric_elapsed_value", "Tiempo transcurrido: %@" },
    { "hist_peak_value", "Luminancia máxima: %@" },
    // never lose work: quit question, missing engine
    { "quit_running_title", "Todavía hay un lote en curso" },
    { "quit_running_message",
      "El motor sigue convirtiendo fotos. Al detenerlo, primero termina la foto en curso; no se "
      "pierde nada de lo ya hecho." },
    { "quit_stop_and_quit", "Detener el lote y salir" },
    { "quit_when_done", "Salir al terminar el lote" },
    { "quit_keep_running", "Seguir procesando" },
    { "status_stopping_to_quit", "Deteniendo el lote; después se cerrará..." },
    { "env_engine_missing", "Motor no encontrado: %@" },
    { "env_engine_not_executable", "El motor no es ejecutable: %@" },
    { "env_missing_libraries", "Faltan bibliotecas: %@" },
    { "log_engine_missing_start",
      "No se puede iniciar: no hay ningún motor en %@. Instale orvanta_engine o indique su ruta en "
      "ORVANTA_BIN." },
    // recipe messages, engine version, singular forms of counts
    { "recipes_exported_success", "¡Recetas exportadas correctamente!" },
    { "recipes_export_failed", "No se pudieron exportar las recetas: %@" },
    { "recipes_import_failed", "No se pudieron importar las recetas: %@" },
    { "inspector_peak_value", "+%.2f pasos (%.1fx)" },
    { "history_row_success", "Correcta" },
    { "history_row_failed", "Fallida" },
    { "inspector_engine_version_unknown", "No disponible (motor no encontrado)" },
    { "status_scan_done#one", "Análisis completado: %d pendiente" },
    { "status_all_up_to_date#one",
      "Todas las fotos ya están actualizadas (%d omitida, ningún archivo pendiente)" },
    { "card_pairs_found#one", "%d par encontrado" },
    { "notif_batch_success_body#one", "Se entregó correctamente %d foto Ultra HDR en %.1f s." },
    { "notif_batch_failed_body#one", "%d correcta, %d con errores." },
    { "history_all_loaded#one", "%d foto cargada" },
    { "drop_success_photos#one", "%d foto cargada: %@" },
    { "recipes_imported_success#one", "¡Se importó correctamente %d receta!" },
    { "inspector_faces_count#one", "%d rostro (atenuación de piel del 40 %)" },
    { "batch_selected_count#one", "%d seleccionada" },
    { "history_delete_confirm_title#one", "¿Eliminar %d registro del historial?" },
    { "inspector_gainmap_detail#one", "%@ · %.2f a %.2f pasos · %d canal" },
    // History database locked by another program
    { "history_busy", "El historial está ocupado, reintentando…" },
    // Batch: pause, nothing to do, failure list
    { "status_nothing_to_do", "Nada que procesar: no se encontraron pares RAW+JPG coincidentes" },
    { "status_paused", "En pausa en [%d / %d]" },
    { "status_resumed", "Reanudado en [%d / %d]" },
    { "btn_pause", "Pausa" },
    { "btn_resume", "Reanudar" },
    { "menu_pause_pipeline", "Pausar o reanudar el lote" },
    { "card_paused", "En pausa" },
    { "card_failed_count", "%d fallidas" },
    { "btn_show_failures", "Ver fallos" },
    { "failures_title", "Fotos fallidas" },
    { "failures_summary", "No entregadas en el último lote: %d" },
    { "failures_column_photo", "Foto" },
    { "failures_column_reason", "Motivo" },
    { "failures_no_reason", "El motor no indicó ningún motivo" },
    { "failures_reveal", "Mostrar en Archivos" },
    { "failures_retry", "Reintentar fallidas" },
    { "failures_close", "Cerrar" },
    // Name of a destination that is not a volume of its own
    { "volume_local_disk", "Disco local" },
    // Watching a folder after the batch
    { "opt_watch_folder", "Seguir vigilando la carpeta" },
    { "opt_watch_folder_help",
      "Tras el lote, convierte cada nuevo par RAW+JPG en cuanto llega (para disparo conectado) "
      "hasta que pulses «Detener procesamiento»" },
    { "card_watching", "Vigilando %@" },
    { "card_watch_lost_title", "Esperando la carpeta" },
    { "card_watch_count", "%d fotos convertidas desde el inicio" },
    { "card_watch_count#one", "%d foto convertida desde el inicio" },
    { "card_watch_last", "Última foto: %@" },
    { "card_watch_lost",
      "La carpeta vigilada ha desaparecido (movida o eliminada). Esperando a que vuelva…" },
    { "card_watch_lost_unmounted",
      "Se ha retirado el disco que contiene la carpeta vigilada. Esperando a que vuelva…" },
    { "status_watching", "Vigilando %@ a la espera de fotos nuevas" },
    // What made a photo fail, as the failure list says it
    { "failure_jpg_unreadable", "No se puede leer el JPG de la cámara" },
    { "failure_raw_unreadable", "No se puede leer el archivo RAW" },
    { "failure_colour_unmatched",
      "El JPG no coincide con los colores del RAW, así que no se creó la versión HDR" },
    { "failure_encode_failed", "No se pudo crear el archivo Ultra HDR" },
    { "failure_write_failed", "No se pudo guardar el resultado en la carpeta de destino" },
    { "failure_destination_gone", "La carpeta de destino desapareció durante el lote" },
};
} // namespace

std::span<const StringEntry> es()
{
    return kEntries;
}

} // namespace orvanta::strings
