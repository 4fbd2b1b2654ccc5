// SPDX-License-Identifier: MIT
// The functions that fill the pages; gallery/pagelist.cpp lists them.
#pragma once

class Page;

void buildResourcesPage(Page &page);
void buildButtonsPage(Page &page);
void buildLabelsPage(Page &page);
void buildFieldsPage(Page &page);
void buildChoicesPage(Page &page);
void buildFootBarPage(Page &page);
void buildFocusPage(Page &page);
void buildMessagesPage(Page &page);
void buildSheetsPage(Page &page);
void buildPagingPage(Page &page);
void buildTablesPage(Page &page);
void buildTreePage(Page &page);
void buildBarsPage(Page &page);
void buildDateAndTimePage(Page &page);
void buildStockControlsPage(Page &page);
void buildStockChoicesPage(Page &page);
void buildStockViewsPage(Page &page);
void buildStockWindowsPage(Page &page);
void buildHelpPage(Page &page);
